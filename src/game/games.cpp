#include "game/games.h"

#include "frame/frame_state.h"
#include "frame/settings/ini_store.h"
#include "game/launcher.h"
#include "platform/files/ini_file.h"
#include "platform/files/paths.h"

#include <algorithm>

namespace {

const QString GamesSection = QStringLiteral("Games");

QString GameValue(const char* key, int number)
{
    const QString value = ReadIni(GamesSection, QString::fromLatin1(key) + QString::number(number));
    return value == IniFile::NotFound ? QString() : value;
}

bool IsSameProgram(const QString& a, const QString& b)
{
    return a == b || (!a.isEmpty() && paths::Canonical(a) == paths::Canonical(b));
}

} // namespace

std::vector<GameEntry> LoadGames()
{
    std::vector<GameEntry> games;
    for (int number = 1;; ++number) {
        const QString program = GameValue("Path", number);
        if (program.isEmpty())
            break;
        games.push_back(
            {GameValue("Name", number), paths::Inside(program), CommandWords(GameValue("Arguments", number))});
    }
    const QString& inUse = Frame.Settings.RNDPath;
    const bool listed = std::any_of(games.begin(), games.end(),
                                    [&](const GameEntry& game) { return IsSameProgram(game.Program, inUse); });
    if (!listed && !inUse.isEmpty() && inUse != IniFile::NotFound)
        games.insert(games.begin(), {QString(), inUse, {}});
    return games;
}

void SaveGames(const std::vector<GameEntry>& games)
{
    QString items;
    int number = 0;
    const auto item = [&](const char* key, const QString& value) {
        items += QString::fromLatin1(key) + QString::number(number) + u'=' + value + QChar(0);
    };
    for (const GameEntry& game : games) {
        ++number;
        item("Path", game.Program);
        item("Name", game.Name);
        item("Arguments", ArgumentText(game.Arguments));
    }
    WriteSection(GamesSection, items);
}

GameEntry GameInUse()
{
    for (GameEntry& game : LoadGames())
        if (IsSameProgram(game.Program, Frame.Settings.RNDPath))
            return std::move(game);
    return {{}, Frame.Settings.RNDPath, {}};
}

QString ArgumentText(const QStringList& arguments)
{
    QStringList words;
    for (const QString& word : arguments)
        words << (word.isEmpty() || word.contains(u' ') ? u'"' + word + u'"' : word);
    return words.join(u' ');
}
