#include "windows/options/find_game.h"

#include "frame/frame_state.h"
#include "frame/media/media_lists.h"
#include "frame/messages/asker.h"
#include "frame/messages/messages.h"
#include "frame/settings/settings.h"
#include "game/game_program.h"
#include "platform/files/paths.h"

std::optional<QString> AskForGame(const QString& known)
{
    return AskText(FileQuestion{.Title = QStringLiteral("Locate Rocks'n'Diamonds Executable"),
                                .Filter = QStringLiteral("Rocks'n'Diamond's EXE (*)|*"),
                                .Folder = paths::FolderOfPath(known),
                                .Preset = {}});
}

bool IsTheGame(const QString& program)
{
    if (ProveGame(program))
        return true;
    ShowMessage(message::NotTheGame);
    return false;
}

void ShowGameFolders(const QString& program)
{
    const GameFolders folders = GameFoldersOf(program);
    const bool graphics = paths::FolderExists(folders.Graphics);
    Frame.Media.RndFolder = graphics ? folders.Graphics : QString();
    ShowMedia();
    if (!graphics)
        ShowMessage(message::GameFolderMissing, Frame.Settings.RndGfxFolderName);
    if (!paths::FolderExists(folders.Levels))
        ShowMessage(message::LevelsFolderMissing);
}
