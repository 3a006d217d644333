#pragma once

#include <string>

/// Prints a default conf in the game's form and size; false for a name that is none.
bool PrintConf(const std::string& name);
