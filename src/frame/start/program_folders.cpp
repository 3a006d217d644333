#include "frame/start/start_up.h"
#include "platform/files/paths.h"
#include "platform/files/standard_folders.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <tuple>

namespace {

constexpr qint64 LargestInstalled = qint64(256) << 20;
const QString UserFile = QStringLiteral("data/user.ini");

/// Where an installation put the program's files; empty if nowhere.
QString InstalledFiles(const QString& executableFolder)
{
    QStringList places = {QDir::cleanPath(executableFolder + QStringLiteral("../share/gemforge"))};
    for (const QString& place : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation))
        places << place + QStringLiteral("/gemforge");
    for (const QString& place : places)
        if (paths::Closed(place) != folders::Data() && paths::FileExists(paths::Closed(place) + UserFile))
            return paths::Closed(place);
    return {};
}

/// Lets `to` hold what `from` holds. Where that fails the check of the tables tells what is missing.
void Bring(const QString& from, const QString& to)
{
    const Result<QByteArray> bytes = paths::ReadWhole(from, LargestInstalled);
    const Result<QByteArray> there = paths::ReadWhole(to, LargestInstalled);
    if (bytes && !(there && *there == *bytes))
        std::ignore = paths::WriteWhole(to, *bytes);
}

void BringFolder(const QString& from, const QString& to)
{
    if (paths::FolderExists(to) || !QDir().mkpath(to))
        return;
    for (const QString& name : QDir(from).entryList(QDir::Files))
        Bring(from + name, to + name);
}

/// Tables, help and the default palette come with each update; settings, macros and the other previews are the user's
/// after the first start.
void FillUserFolder(const QString& from, const QString& to)
{
    QDir().mkpath(to + QStringLiteral("data"));
    for (const QString& name : QDir(from + QStringLiteral("data")).entryList({QStringLiteral("*.ini")}, QDir::Files)) {
        const QString file = QStringLiteral("data/") + name;
        if (file != UserFile || !paths::FileExists(to + file))
            Bring(from + file, to + file);
    }
    Bring(from + QStringLiteral("Help.zip"), to + QStringLiteral("Help.zip"));
    for (const QString& folder : {QStringLiteral("Macros/"), QStringLiteral("previews/")})
        BringFolder(from + folder, to + folder);
    const QString palette = QStringLiteral("previews/gfx_classic.gif");
    if (paths::FileExists(from + palette))
        Bring(from + palette, to + palette);
}

} // namespace

StartFolders OrdinaryFolders(const QString& executableFolder)
{
    const QString beside = paths::Closed(executableFolder);
    StartFolders found;
    found.StateFolder = folders::State();
    found.HelpProgram = beside + QStringLiteral("Help");
    found.ProgramFolder = beside;
    const QString installed = paths::FileExists(beside + UserFile) ? QString() : InstalledFiles(beside);
    if (!installed.isEmpty()) {
        FillUserFolder(installed, folders::Data());
        found.ProgramFolder = paths::FileExists(folders::Data() + UserFile) ? folders::Data() : installed;
    }
    found.SettingsReadOnly = !QFileInfo(found.ProgramFolder + UserFile).isWritable();
    return found;
}
