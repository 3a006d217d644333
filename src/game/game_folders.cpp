#include "game/game_folders.h"

#include "frame/frame_state.h"
#include "frame/settings/settings.h"
#include "platform/files/ini_file.h"
#include "platform/files/paths.h"
#include "platform/files/standard_folders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <unistd.h>

QString GameCompat(const QString& key, const QString& shipped)
{
    const QString told = ReadIni(QStringLiteral("RND Compatibility"), key, QStringLiteral("compat"));
    return told == IniFile::NotFound ? shipped : told;
}

QString GameUserFolder()
{
    return paths::Closed(paths::Inside(GameCompat(QStringLiteral("DefMyDocsRND1"))));
}

QString GameUserFolderName()
{
    const QString name = paths::FileNameOfPath(paths::Inside(GameCompat(QStringLiteral("DefMyDocsRND1"))));
    return name.isEmpty() ? QStringLiteral("game") : name;
}

QString ProgramToStart(const QString& program)
{
    const QString behind = paths::Canonical(program);
    const QString data = GameFoldersOf(program).Base;
    const bool besideTarget = data == paths::FolderOfPath(behind) && data != paths::FolderOfPath(program);
    return QFileInfo(program).isSymLink() && besideTarget ? behind : program;
}

QString OutputFolder()
{
    const QString folder = paths::FolderOfPath(Frame.Settings.RNDPath);
    return access(QFile::encodeName(folder), W_OK) == 0 ? folder : folders::Data();
}

QString PrintedFile()
{
    return OutputFolder() + QStringLiteral("stdout.txt");
}

QString ErrorLogFile()
{
    return OutputFolder() + QStringLiteral("stderr.txt");
}

QString SetFolderOf(const QString& folder)
{
    const QString conf = Frame.ConfNames.at(ModeLvl);
    QString here = paths::Closed(QDir::cleanPath(folder));
    while (!here.isEmpty() && !QFileInfo(here + conf).isFile())
        here = paths::FolderOfPath(here.chopped(1));
    return here;
}
