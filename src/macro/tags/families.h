#pragma once

#include "macro/language/word_tables.h"

// One routine a family of tags: its table.

std::span<const PlainTag> EditingTags();
std::span<const PlainTag> ResultTags();
std::span<const PlainTag> PathTags();
std::span<const PlainTag> ElementTags();
std::span<const PlainTag> WindowTags();
std::span<const PlainTag> LevelTags();
std::span<const FunctionTag> FunctionTags();
std::span<const FunctionTag> LevelFunctionTags();
