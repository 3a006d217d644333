#include "macro/tags/families.h"

std::span<const std::span<const PlainTag>> PlainTagFamilies()
{
    static const std::span<const PlainTag> families[] = {EditingTags(), ResultTags(), PathTags(),
                                                         ElementTags(), WindowTags(), LevelTags()};
    return families;
}

std::span<const std::span<const FunctionTag>> FunctionTagFamilies()
{
    static const std::span<const FunctionTag> families[] = {FunctionTags(), LevelFunctionTags()};
    return families;
}
