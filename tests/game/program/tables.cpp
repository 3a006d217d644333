#include "game/program/tables.h"

#include <cctype>
#include <fstream>

std::vector<std::string> TableWords(const std::string& table, const std::string& section)
{
    std::ifstream file(std::string(PROJECT_FOLDER "/data/") + table + ".ini");
    std::vector<std::string> words;
    std::string line, now;
    while (std::getline(file, line)) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (!line.empty() && line.front() == '[')
            now = line;
        else if (now == "[" + section + "]" && !line.empty() && std::isdigit(static_cast<unsigned char>(line.front())))
            words.push_back(line.substr(line.find('=') + 1));
    }
    return words;
}
