#include "graphics/picks.h"

PickPorts Picks;

void ResetPicks()
{
    Picks = PickPorts{};
}

SheetAnswer PickFromSheet(const SheetRequest& request)
{
    return Picks.Sheet ? Picks.Sheet(request) : SheetAnswer{};
}

std::optional<QString> PickElement(const ElementRequest& request)
{
    return Picks.Element ? Picks.Element(request) : std::nullopt;
}

SheetRequest MacroSheet(const QString& path, const QString& prompt)
{
    const bool alone = prompt == QLatin1StringView("PREVIEW");
    return {.Source = MediaSource::Macro,
            .File = path,
            .Block = std::nullopt,
            .Purpose = alone ? SheetPurpose::Show : SheetPurpose::Pick,
            .Prompt = alone ? QString() : prompt};
}
