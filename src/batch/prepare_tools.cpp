#include "batch/prepare_tools.h"

#include "frame/frame_state.h"
#include "frame/settings/settings_table.h"
#include "frame/settings/shipped_settings.h"
#include "platform/files/paths.h"

namespace {

void ReadToolSettings()
{
    SettingsReader reader;
    for (const char* key : {"SpacerWidth", "SuperTab", "LineCommentLineChar", "LineCommentSearchChar", "RNDPath"})
        reader.Read(SettingOf(QLatin1StringView("Misc"), QLatin1StringView(key)), Frame.Settings);
    ReadDumpCommands();
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
