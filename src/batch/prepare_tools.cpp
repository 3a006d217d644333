#include "batch/prepare_tools.h"

#include "frame/frame_state.h"
#include "frame/settings/shipped_settings.h"
#include "platform/paths.h"

namespace {

void ReadToolSettings()
{
    const QString misc = QStringLiteral("Misc");
    SettingsReader reader;
    SettingsRecord& settings = Frame.Settings;
    settings.SpacerWidth = reader.Number(misc, QStringLiteral("SpacerWidth"), 10, 200);
    settings.SuperTab = reader.Flag(misc, QStringLiteral("SuperTab"));
    settings.LineCommentLineChar = reader.Text(misc, QStringLiteral("LineCommentLineChar"));
    settings.LineCommentSearchChar = reader.Text(misc, QStringLiteral("LineCommentSearchChar"));
    settings.RNDPath = paths::Inside(ReadIni(misc, QStringLiteral("RNDPath")));
    DeriveGameFolders();
}

} // namespace

Result<> PrepareTools(const StartFolders& folders)
{
    Frame.ProgramFolder = paths::Closed(folders.ProgramFolder);
    Frame.DataFolder = Frame.ProgramFolder + QStringLiteral("data/");
    Frame.MacrosFolder = Frame.ProgramFolder + QStringLiteral("Macros/");
    Frame.SettingsReadOnly = true;
    for (const char* table : {"compat.ini", "levelheader.ini"}) {
        const QString path = Frame.DataFolder + QString::fromLatin1(table);
        if (!paths::FileExists(path))
            return Fail(path, QStringLiteral("this table is missing"));
    }
    FillConfNames();
    ReadToolSettings();
    return {};
}
