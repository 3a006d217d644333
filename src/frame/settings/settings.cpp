#include "frame/settings/settings.h"

#include "frame/editor_pane.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "frame/settings/history.h"
#include "frame/settings/settings_table.h"
#include "frame/settings/shipped_settings.h"
#include "platform/files/paths.h"

namespace {

constexpr int ThumbnailsId = 7;
constexpr QLatin1StringView MiscKeys("Misc");

/// Takes every value of a section that the record holds.
void ReadRows(SettingsReader& reader, QLatin1StringView section)
{
    for (const SettingRow& row : SettingRows())
        if (row.Place && section == QLatin1StringView(row.Section))
            reader.Read(row, Frame.Settings);
}

/// Which form it is stands first: nothing is coloured twice.
void ReadLooks(SettingsReader& reader)
{
    reader.Read(SettingOf(MiscKeys, QLatin1StringView("ColourForm")), Frame.Settings);
    for (const LookForm form : {LookForm::Light, LookForm::Dark})
        ReadRows(reader, SectionOf(form));
    GiveLookToAll();
}

void ReadAnimModes(SettingsRecord& settings)
{
    const QString section = QStringLiteral("AnimModes");
    const QString file = QStringLiteral("lg_gfxact");
    const int count = ReadIni(section, QStringLiteral("Count"), file).toInt();
    settings.AnimModes.clear();
    for (int i = 1; i <= qMin(count, 1000); ++i)
        settings.AnimModes << ReadIni(section, QString::number(i), file);
}

void ShowInitialFolders()
{
    const SettingsRecord& settings = Frame.Settings;
    if (settings.OpenSaveInLevelDir == 1 && paths::FolderExists(settings.LevelsFolder))
        SetExtraFolder(settings.LevelsFolder);
}

/// A list for a message: its first lines, and how many more there are.
QString FirstOf(const QStringList& all)
{
    constexpr qsizetype Most = 12;
    const QString first = all.first(qMin(Most, all.size())).join(u'^');
    return all.size() <= Most ? first : first + QStringLiteral("^and %1 more").arg(all.size() - Most);
}

} // namespace

const std::array<SyntaxRow, 9>& SyntaxKeys()
{
    static constexpr std::array<SyntaxRow, 9> Rows = {{
        {"ElementColour", "ElementBackColour", "ElementStyle", 8, 9, 2},
        {"ActionColour", "ActionBackColour", "ActionStyle", 20, 21, 8},
        {"GFXComColour", "GFXComBackColour", "GFXComStyle", 22, 23, 9},
        {"SpecialColour", "SpecialBackColour", "SpecialStyle", 24, 25, 10},
        {"CommentColour", "CommentBackColour", "CommentStyle", 14, 15, 5},
        {"OperatorsColour", "OperatorsBackColour", "OperatorsStyle", 10, 11, 3},
        {"LineNumberColour", "LineNumberBackColour", "LineNumberBackStyle", 26, 27, 11},
        {"NormalColour", "NormalBackColour", "NormalStyle", 4, 5, 0},
        {"NumbersColour", "NumbersBackColour", "NumbersStyle", 6, 7, 1},
    }};
    return Rows;
}

const std::array<ViewToggle, 6>& ViewToggles()
{
    static constexpr std::array<ViewToggle, 6> Rows = {{
        {"ShowLineNumbers", 1, &SettingsRecord::ShowLineNumbers},
        {"ShowSpaces", 2, &SettingsRecord::ShowSpaces},
        {"UseColour", 3, &SettingsRecord::UseColour},
        {"SuperTab", 5, &SettingsRecord::SuperTab},
        {"LineHints", 6, &SettingsRecord::LineHints},
        {"Thumbnails", ThumbnailsId, &SettingsRecord::Thumbnails},
    }};
    return Rows;
}

void LoadSettings()
{
    SettingsReader reader;
    SettingsRecord& settings = Frame.Settings;
    ReadLooks(reader);
    settings.Bands = ReadBands(reader);
    emit Events().ToolBarsLoaded();
    for (const char* section : {"QuickElementTemplate", "AutoCompleteTemplate", "Nags", "Misc"})
        ReadRows(reader, QLatin1StringView(section));
    Frame.ShowWelcome = reader.Number(SettingOf(MiscKeys, QLatin1StringView("1stTime")));
    for (const char* key : {"Left", "Top", "Width", "Height", "Max"}) // the window has read them before
        reader.Number(SettingOf(QLatin1StringView("Window Positions"), QLatin1StringView(key)));
    emit Events().MenuStripsChanged(settings.Gradients == 1);
    emit Events().ViewSettingChanged();
    ReadDumpCommands();
    DeriveGameFolders();
    ShowInitialFolders();
    LoadHistories();
    ReadAnimModes(settings);
    for (int id = 1; id <= ThumbnailsId; ++id)
        ApplyViewSetting(id, ViewSetting(id));
    reader.WriteBack();
    if (!reader.Corrected().isEmpty())
        ShowMessage(message::SettingsBroken, FirstOf(reader.Corrected()));
}

int ViewSetting(int id)
{
    if (id == 4)
        return Frame.Settings.UndoLimit;
    for (const ViewToggle& row : ViewToggles())
        if (row.Id == id)
            return Frame.Settings.*row.Value;
    return 0;
}

void ApplyViewSetting(int id, int value)
{
    if (id == ThumbnailsId)
        emit Events().MediaLooksChanged();
    for (int tab = 0; tab < 8; ++tab) {
        EditorPane& pane = Panes().Pane(tab);
        switch (id) {
        case 1:
            pane.SetLineNumbering(value == 1);
            break;
        case 2:
            pane.SetDisplayWhitespace(value == 1);
            break;
        case 3:
            pane.SetColorSyntax(value == 1);
            break;
        case 4:
            pane.SetUndoLimit(value);
            break;
        case 5:
            pane.SetTabSize(Frame.Settings.SuperTab < 1 ? 4 : Frame.Settings.SpacerWidth - 1);
            break;
        case 6:
            pane.ShowLineMarks(value == 1);
            break;
        default:
            break;
        }
    }
}

void ToggleView(int id)
{
    for (const ViewToggle& row : ViewToggles())
        if (row.Id == id)
            ChangeSetting(SettingOf(MiscKeys, QLatin1StringView(row.Key)), Frame.Settings.*row.Value == 1 ? 0 : 1);
}
