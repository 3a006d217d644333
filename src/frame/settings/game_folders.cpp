#include "frame/frame_state.h"
#include "frame/media/media_lists.h"
#include "frame/settings/settings.h"
#include "platform/files/ini_file.h"
#include "platform/files/paths.h"

#include <QDir>

namespace {

QString Compat(const QString& key)
{
    return ReadIni(QStringLiteral("RND Compatibility"), key, QStringLiteral("compat"));
}

/// The game's data need not lie beside its executable, and the executable may be reached through a link.
QString FindGameFolder(const QString& executable, const QString& levels)
{
    const QStringList beside = {paths::FolderOfPath(executable), paths::FolderOfPath(paths::Canonical(executable))};
    for (int i = 1;; ++i) {
        const QString told = Compat(QStringLiteral("GameFolder%1").arg(i));
        if (told == IniFile::NotFound)
            break;
        const QString folder = paths::Inside(told);
        for (const QString& base : beside) {
            const QString whole = QDir::cleanPath(folder.startsWith(u'/') ? folder : base + folder);
            if (paths::FolderExists(paths::Closed(whole) + levels))
                return paths::Closed(whole);
        }
    }
    return beside.first();
}

QString Below(const QString& folder, const QString& name)
{
    return folder.isEmpty() ? QString() : paths::Closed(folder + paths::Inside(name));
}

} // namespace

GameFolders GameFoldersOf(const QString& program)
{
    if (paths::FolderOfPath(program).isEmpty())
        return {};
    const QString levels = Compat(QStringLiteral("FileNameCheck5"));
    GameFolders folders;
    folders.Base = FindGameFolder(program, levels);
    folders.Docs = Below(folders.Base, Compat(QStringLiteral("DefDocsFolder")));
    folders.Graphics = Below(folders.Base, Compat(QStringLiteral("DefGFXFolder")));
    folders.Levels = Below(folders.Base, levels);
    return folders;
}

void ReadDumpCommands()
{
    for (int i = 1; i <= 6; ++i)
        Frame.Settings.ComType.at(i) = Compat(QStringLiteral("ComType%1").arg(i));
}

void DeriveGameFolders()
{
    SettingsRecord& settings = Frame.Settings;
    settings.RndGfxFolderName = Compat(QStringLiteral("DefGFXFolder"));
    settings.RndSfxFolderName = Compat(QStringLiteral("DefSFXFolder"));
    const GameFolders folders = GameFoldersOf(settings.RNDPath);
    settings.RndFolder = folders.Base;
    settings.RndDocsFolder = folders.Docs;
    settings.LevelsFolder = folders.Levels;

    const QString kinds = Compat(QStringLiteral("SheetKinds")).toLower();
    if (kinds != IniFile::NotFound.toLower())
        settings.SheetKinds = kinds.simplified().remove(u' ').split(u',', Qt::SkipEmptyParts);

    Frame.Media.RndFolder = paths::FolderExists(folders.Graphics) ? folders.Graphics : QString();
    ShowMedia();
}

bool IsRndPathSet()
{
    const QString& path = Frame.Settings.RNDPath;
    if (!path.isEmpty() && paths::FileExists(path))
        return true;
    ShowMessage(message::GameNotSet);
    return false;
}
