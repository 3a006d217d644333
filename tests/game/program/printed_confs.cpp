#include "game/program/printed_confs.h"

#include "game/program/stand_in.h"
#include "game/program/tables.h"

#include <cstring>

namespace {

struct PrintedConf
{
    const char* Name;
    const char* What;    ///< in its first line
    const char* SetName; ///< null: no header
    const char *Table, *Section;
    int Lines; ///< of today's game
    bool Ends; ///< blocks closed by "end"
};

constexpr PrintedConf Confs[] = {
    {"graphicsinfo.conf", "additional/alternative image", "Classic Graphics", "lg_gfxele", "Elements", 14870, false},
    {"soundsinfo.conf", "additional/alternative sound", "Classic Sounds", "lg_other", "SFXElements", 449, false},
    {"musicinfo.conf", "additional/alternative music", "Classic Music", "lg_other", "MUSElements", 46, false},
    {"helptext.conf", "different element help", nullptr, "lg_gfxele", "Elements", 65, false},
    {"helpanim.conf", "different element animation", nullptr, "lg_gfxele", "Elements", 361, true},
    {"editorsetup.conf", "your personal editor", nullptr, "lg_gfxele", "Elements", 1472, false},
};

std::string Padded(const std::string& text, size_t column)
{
    return text.size() < column ? text + std::string(column - text.size(), ' ') : text;
}

} // namespace

bool PrintConf(const std::string& name)
{
    for (const PrintedConf& conf : Confs) {
        if (name != conf.Name)
            continue;
        Print(std::string("# You can configure ") + conf.What + " files here.");
        Print("# (The entries below are default and therefore commented out.)");
        Print("");
        int lines = 3;
        if (conf.SetName) {
            for (const std::string& line : {Padded("name:", 40) + conf.SetName, std::string(),
                                            Padded("sort_priority:", 40) + "100", std::string()})
                Print(line);
            lines += 4;
        }
        const std::vector<std::string> words = TableWords(conf.Table, conf.Section);
        static constexpr const char* Parts[] = {"",        ".xpos",
                                                ".ypos",   ".frames",
                                                ".delay",  ".moving.left",
                                                ".EDITOR", ".active.anim_mode",
                                                ".hit",    ".PREVIEW.some_very_long_key_part"};
        for (size_t i = 0; lines < conf.Lines; ++i, ++lines) {
            const bool isEnd = conf.Ends && i % 3 == 2;
            const std::string key = words.at(i / std::size(Parts) % words.size()) + Parts[i % std::size(Parts)];
            Print(isEnd ? "# end" : Padded("# " + key + ":", 42) + "RocksDC.png # 1");
        }
        return true;
    }
    return false;
}
