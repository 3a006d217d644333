#include "game/program/set_reader.h"

#include "game/program/stand_in.h"
#include "game/program/tables.h"

#include <cstdlib>
#include <set>
#include <sstream>
#include <vector>

namespace {

const std::string Rule(73, '-');

struct Line
{
    std::string Key, Value;
};

std::string Trimmed(const std::string& text)
{
    const size_t from = text.find_first_not_of(" \t\r");
    return from == std::string::npos ? "" : text.substr(from, text.find_last_not_of(" \t\r") - from + 1);
}

std::vector<Line> LinesOf(const fs::path& conf)
{
    std::vector<Line> lines;
    std::istringstream text(ReadFile(conf));
    for (std::string line; std::getline(text, line);) {
        line = Trimmed(line.substr(0, line.find('#')));
        const size_t end = line.find_first_of(":=");
        if (!line.empty())
            lines.push_back({Trimmed(line.substr(0, end)),
                             end == std::string::npos ? std::string() : Trimmed(line.substr(end + 1))});
    }
    return lines;
}

std::string ValueOf(const fs::path& conf, const std::string& key)
{
    std::string value;
    for (const Line& line : LinesOf(conf))
        if (line.Key == key)
            value = line.Value;
    return value;
}

/// Set folders below a folder; a group is looked into.
fs::path FindSet(const fs::path& levels, const std::string& name)
{
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(levels, error)) {
        const fs::path conf = entry.path() / "levelinfo.conf";
        if (!fs::exists(conf))
            continue;
        std::string identifier = ValueOf(conf, "identifier");
        if (identifier.empty())
            identifier = entry.path().filename();
        if (ValueOf(conf, "level_group") == "true") {
            if (const fs::path found = FindSet(entry.path(), name); !found.empty())
                return found;
        } else if (identifier == name) {
            return entry.path();
        }
    }
    return {};
}

void Block(const std::vector<std::string>& lines)
{
    Message("[WARN]", Rule);
    for (const std::string& line : lines)
        Message("[WARN]", line);
}

/// The kinds of artwork: folder, conf, the game's own files, and the table of its words.
struct Artwork
{
    const char *Folder, *Conf, *Classic, *Table, *Section;
};
constexpr Artwork Artworks[] = {
    {"graphics", "graphicsinfo.conf", "gfx_classic", "lg_gfxele", "Elements"},
    {"sounds", "soundsinfo.conf", "snd_classic", "lg_other", "SFXElements"},
    {"music", "musicinfo.conf", "mus_classic", "lg_other", "MUSElements"},
};

bool NamesFile(const std::string& value)
{
    for (const char* ending : {".png", ".pcx", ".wav", ".mod"})
        if (value.size() > 4 && value.compare(value.size() - 4, 4, ending) == 0)
            return true;
    return false;
}

bool IsPicture(const fs::path& path)
{
    const std::string bytes = ReadFile(path);
    return bytes.rfind("\x89PNG", 0) == 0 || bytes.rfind("\x0A", 0) == 0;
}

/// The file of a value: in the set, else in the game; a picture's twin of the other ending counts.
fs::path FindFile(const Artwork& artwork, const std::string& name)
{
    for (const fs::path& folder : {Me.SetFolder / artwork.Folder, Me.OwnFolder / artwork.Folder / artwork.Classic}) {
        for (const char* ending : {"", ".png", ".pcx"}) {
            fs::path path = folder / name;
            if (*ending)
                path.replace_extension(ending);
            if (fs::exists(path))
                return path;
        }
    }
    return {};
}

void TellUnknownKeys(const fs::path& conf, const std::set<std::string>& known, const std::vector<Line>& lines)
{
    std::vector<std::string> unknown = {"unknown token(s) found in config file:",
                                        "- config file: '" + conf.string() + "'"};
    for (const Line& line : lines) {
        const std::string first = line.Key.substr(0, line.Key.find('.'));
        if (!known.contains(first) && first != "name" && first != "sort_priority")
            unknown.push_back("- dynamic token: '" + line.Key + "'");
    }
    if (unknown.size() > 2)
        Block(unknown);
}

void TellEmptyValues(const fs::path& conf, const std::vector<Line>& lines)
{
    std::vector<std::string> empty = {"undefined values found in config file:",
                                      "- config file: '" + conf.string() + "'"};
    for (const Line& line : lines)
        if (line.Value.empty())
            empty.insert(empty.end(), 2, "- undefined value for token: '" + line.Key + "'"); // told twice
    if (empty.size() > 2)
        Block(empty);
}

/// False: a picture that a key uses cannot be read.
bool TellFiles(const Artwork& artwork, const fs::path& conf, const std::vector<Line>& lines)
{
    for (const Line& line : lines) {
        if (line.Key.size() > 11 && line.Key.ends_with(".clone_from"))
            Block({"error found in config file:", "- config file: '" + conf.string() + "'",
                   "error: invalid graphic token '" + line.Value + "'",
                   "custom graphic rejected for this element/action", "fallback done to 'char_exclam' for this graphic",
                   Rule});
        if (!NamesFile(line.Value))
            continue;
        const fs::path file = FindFile(artwork, line.Value);
        if (file.empty()) {
            Message("[WARN]", "cannot find artwork file '" + line.Value + "'");
            Message("[WARN]", "trying default artwork file 'RocksDC.png'");
        } else if (std::string(artwork.Folder) == "graphics" && !IsPicture(file)) {
            Message("[FATAL]", "IMG_Load('" + line.Value + "') failed: Unsupported image format");
            return false;
        }
    }
    return true;
}

bool ReadArtwork(const Artwork& artwork)
{
    const fs::path conf = Me.SetFolder / artwork.Folder / artwork.Conf;
    if (!fs::exists(conf))
        return true;
    if (ReadFile(conf).empty())
        for (int i = 0; i < 3; ++i)
            Message("[WARN]", "configuration file '" + conf.string() + "' is empty");
    const std::vector<std::string> words = TableWords(artwork.Table, artwork.Section);
    const std::vector<Line> lines = LinesOf(conf);
    TellUnknownKeys(conf, {words.begin(), words.end()}, lines);
    TellEmptyValues(conf, lines);
    return TellFiles(artwork, conf, lines);
}

fs::path StateFile()
{
    return Me.UserFolder / "levelsetup" / Me.SetFolder.filename() / "levelsetup.conf";
}

void ReadLevel()
{
    const std::string chosen = ValueOf(StateFile(), "last_played_level");
    const std::string first = ValueOf(Me.SetFolder / "levelinfo.conf", "first_level");
    Me.Level = std::atoi(chosen.empty() ? first.c_str() : chosen.c_str());
    char name[16];
    std::snprintf(name, sizeof name, "%03d.level", Me.Level);
    const fs::path level = Me.SetFolder / name;
    if (!fs::exists(level))
        Message("[WARN]", "cannot read level '" + level.string() + "' -- using empty level");
    else if (ReadFile(level).rfind("RND1", 0) != 0)
        Message("[WARN]", "unknown format of level file '" + level.string() + "'");
}

} // namespace

bool ReadSet()
{
    const std::string last = ValueOf(Me.UserFolder / "levelsetup.conf", "last_level_series");
    if (!last.empty())
        Me.Set = last;
    for (const fs::path& levels : {Me.LevelsFolder, Me.UserFolder / "levels"})
        if (Me.SetFolder.empty())
            Me.SetFolder = FindSet(levels, Me.Set);
    if (Me.SetFolder.empty())
        return true;
    for (const Artwork& artwork : Artworks)
        if (!ReadArtwork(artwork))
            return false;
    ReadLevel();
    return true;
}

void EnterMenu()
{
    if (Me.SetFolder.empty())
        return;
    fs::create_directories(StateFile().parent_path());
    WriteFile(StateFile(),
              "# " + std::string(77, '=') +
                  "\n# levelsetup.conf\n\nlast_played_level:                      " + std::to_string(Me.Level) + "\n");
}
