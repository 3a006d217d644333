#pragma once

#include <string>
#include <vector>

/// The words of a section of one of the project's tables ("lg_gfxele"), in its order.
std::vector<std::string> TableWords(const std::string& table, const std::string& section);
