#include "game/program/stand_in.h"

#include <fstream>
#include <sstream>

void Print(const std::string& line)
{
    std::printf("%s\n", line.c_str());
}

void Message(const char* mark, const std::string& text)
{
    std::printf("%s %s\n", mark, text.c_str());
    if (!Me.Log)
        return;
    std::fprintf(Me.Log, "%s %s\n", mark, text.c_str());
    std::fflush(Me.Log);
}

std::string ReadFile(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void WriteFile(const fs::path& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}
