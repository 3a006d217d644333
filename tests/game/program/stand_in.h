#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

namespace fs = std::filesystem;

/// The one run of the stand-in.
struct StandIn
{
    fs::path OwnFolder, LevelsFolder, UserFolder, SetFolder;
    std::string Set = "tutorial"; ///< chosen
    int Level = 1;
    std::FILE* Log = nullptr;
};
extern StandIn Me;

/// A line on standard output, which is held back unless that is a terminal.
void Print(const std::string& line);
/// A message line, in the log too, which grows line by line.
void Message(const char* mark, const std::string& text);

std::string ReadFile(const fs::path& path); ///< "" if it cannot be read
void WriteFile(const fs::path& path, const std::string& text);
