// A stand-in for the game, as far as an editor sees it: the same command line, conf files printed in the same form and
// size (with words of our own tables), messages as today's game writes them, the same files in the player's folder.
// What it does in its main menu, the variable GAME_STAND_IN says: acts parted by ";" (see Acts).

#include "game/program/menu_window.h"
#include "game/program/printed_confs.h"
#include "game/program/set_reader.h"
#include "game/program/stand_in.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <unistd.h>

StandIn Me;

namespace {

constexpr const char* Version = "Rocks'n'Diamonds 4.4.2.1";

std::string Variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// The setup file as the game leaves it when an error or the signal TERM ends it: the set is no longer chosen.
void DropSet()
{
    const fs::path setup = Me.UserFolder / "levelsetup.conf";
    WriteFile(setup, "# the following level set may have caused a problem and was deactivated\n# " + ReadFile(setup));
}

void EndByTerm(int)
{
    DropSet();
    _exit(15);
}

[[noreturn]] void GiveUp()
{
    Message("[FATAL]", "aborting");
    std::exit(1);
}

struct Act
{
    const char* Word;
    void (*Do)(const std::string& argument);
};

constexpr Act Acts[] = {
    {"sleep", [](const std::string& ms) { std::this_thread::sleep_for(std::chrono::milliseconds(std::stol(ms))); }},
    {"say", [](const std::string& text) { Print(text); }},
    {"grumble", [](const std::string& text) { std::fprintf(stderr, "%s\n", text.c_str()); }},
    {"warn", [](const std::string& text) { Message("[WARN]", text); }},
    {"fatal", // the error screen waits for a key
     [](const std::string& text) {
         Message("[FATAL]", text);
         MenuWindow::WaitForClose();
         GiveUp();
     }},
    {"flood", // so many million bytes
     [](const std::string& millions) {
         const std::string line(99, 'x');
         for (long i = 0; i < std::stol(millions) * 10'000; ++i)
             std::printf("%s\n", line.c_str());
     }},
    {"play", [](const std::string&) { MenuWindow::WaitForClose(); }},
    {"hang", [](const std::string&) { MenuWindow::WaitForever(); }},
    {"crash", [](const std::string&) { std::abort(); }},
    {"setup", [](const std::string& text) { WriteFile(Me.UserFolder / "levelsetup.conf", text + "\n"); }},
    {"score",
     [](const std::string& set) {
         fs::create_directories(Me.UserFolder / "scores" / set);
         WriteFile(Me.UserFolder / "scores" / set / "001.score", "1");
     }},
    {"append", // PATH in the set's folder: as the game's own editor saves
     [](const std::string& name) { WriteFile(Me.SetFolder / name, ReadFile(Me.SetFolder / name) + "edited\n"); }},
    {"keep", // a copy of the set as it was played, in the folder PATH
     [](const std::string& path) { fs::copy(Me.SetFolder, path, fs::copy_options::recursive); }},
    {"exit", [](const std::string& code) { std::exit(std::stoi(code)); }},
};

void DoActs(std::string acts)
{
    while (!acts.empty()) {
        const std::string act = acts.substr(0, acts.find(';'));
        acts = acts.size() > act.size() ? acts.substr(act.size() + 1) : "";
        const std::string word = act.substr(0, act.find(' '));
        for (const Act& row : Acts)
            if (word == row.Word)
                row.Do(act.size() > word.size() ? act.substr(word.size() + 1) : "");
    }
}

/// One line a start in the file that GAME_STAND_IN_LOG names: folder, home, driver, arguments.
void TellStart(int argc, char** argv)
{
    const std::string log = Variable("GAME_STAND_IN_LOG");
    if (log.empty())
        return;
    std::string line =
        "cwd=" + fs::current_path().string() + " home=" + Variable("HOME") + " video=" + Variable("SDL_VIDEODRIVER");
    for (int i = 1; i < argc; ++i)
        line += std::string(" [") + argv[i] + "]";
    WriteFile(log, ReadFile(log) + line + "\n");
}

void MakeUserFolder()
{
    Me.UserFolder = fs::path(Variable("HOME")) / ".rocksndiamonds";
    std::error_code error;
    fs::create_directories(Me.UserFolder / "levels", error);
    Me.Log = std::fopen((Me.UserFolder / "rocksndiamonds.log").c_str(), "w");
    if (Me.Log)
        return;
    Message("[WARN]", "cannot create main user data directory '" + Me.UserFolder.string() + "': " + strerror(errno));
    Message("[WARN]", "cannot open file '" + (Me.UserFolder / "rocksndiamonds.log").string() +
                          "' for writing: " + strerror(errno));
}

[[noreturn]] void Refuse(const std::string& what)
{
    Message("[FATAL]", what);
    Message("[FATAL]", "try option '--help' for more information");
    GiveUp();
}

void Execute(const std::string& command)
{
    if (command.rfind("print ", 0) != 0 || !PrintConf(command.substr(6)))
        Refuse("unrecognized command '" + command + "'");
    std::exit(0);
}

/// Takes the arguments that the game has; an unknown one ends it.
void TakeArguments(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const std::string value = i + 1 < argc ? argv[i + 1] : "";
        if (word == "--version" || word == "-V") {
            MakeUserFolder();
            DoActs(Variable("GAME_STAND_IN_PROOF"));
            Print(Version);
            std::exit(0);
        }
        if (word == "-e" || word == "--execute") {
            MakeUserFolder();
            DoActs(Variable("GAME_STAND_IN_PRINT"));
            Execute(value);
        }
        if (word != "-l" && word != "-v" && word != "--verbose")
            Refuse("unrecognized option '" + word + "'");
        if (word == "-l") {
            Me.LevelsFolder = value;
            ++i;
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGTERM, EndByTerm);
    Me.OwnFolder = fs::absolute(argv[0]).parent_path();
    Me.LevelsFolder = Me.OwnFolder / "levels";
    TellStart(argc, argv);
    TakeArguments(argc, argv);
    if (Variable("SDL_VIDEODRIVER") == "dummy" && Variable("SDL_RENDER_DRIVER") != "software") {
        std::signal(SIGSEGV, SIG_DFL); // a sanitizer's handler would make an exit of it
        std::raise(SIGSEGV);
    }
    MakeUserFolder();
    if (!fs::exists(Me.OwnFolder / "graphics")) { // beside what it was started as, links included
        Message("[FATAL]", "LoadCustomImage(): cannot find file 'RocksFontSmall.png'");
        GiveUp();
    }
    const MenuWindow window;
    if (!ReadSet()) { // a picture that cannot be read
        MenuWindow::WaitForClose();
        GiveUp();
    }
    EnterMenu();
    const std::string acts = Variable("GAME_STAND_IN");
    DoActs(acts.empty() && Variable("SDL_VIDEODRIVER") == "dummy" ? "play" : acts);
    return 0;
}
