#include "frame/settings/settings_table.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "platform/files/paths.h"

#include <algorithm>

namespace {

using enum SettingKind;
using R = SettingsRecord;

constexpr int LargestColour = 0xFFFFFF, LargestStyle = 3;
constexpr int FarthestPlace = 100'000; // pixels
constexpr char LightColours[] = "Syntax Colours", DarkColours[] = "Syntax Colours Dark", MiscSection[] = "Misc",
               Window[] = "Window Positions", Nags[] = "Nags", Quick[] = "QuickElementTemplate",
               Complete[] = "AutoCompleteTemplate";

template <auto Member>
SettingPlace In(SettingsRecord& settings)
{
    return &(settings.*Member);
}

template <auto Member, std::size_t Index>
SettingPlace At(SettingsRecord& settings)
{
    return &(settings.*Member)[Index];
}

template <auto Outer, auto Member>
SettingPlace Inner(SettingsRecord& settings)
{
    return &(settings.*Outer.*Member);
}

template <auto Form, std::size_t Kind, auto Member>
SettingPlace OfKind(SettingsRecord& settings)
{
    return &((settings.*Form).Kinds[Kind].*Member);
}

template <int Id>
void ShowView()
{
    emit Events().ViewSettingChanged();
    ApplyViewSetting(Id, ViewSetting(Id));
}

void ShowStrips()
{
    emit Events().MenuStripsChanged(Frame.Settings.Gradients == 1);
}

void ShowColourForm()
{
    emit Events().ColourFormChanged(); // the windows' palette is a part of the lists' looks
    GiveLookToAll();
}

constexpr SettingRow TableRows[] = {
    {LightColours, "MainFont", Text, 0, 0, Inner<&R::Fonts, &LookFonts::MainFont>, GiveLookToAll},
    {LightColours, "MainFontSize", Real, 0, 0, Inner<&R::Fonts, &LookFonts::MainFontSize>, GiveLookToAll},
    {LightColours, "MediaListFontName", Text, 0, 0, Inner<&R::Fonts, &LookFonts::MediaListFontName>, GiveLookToAll},
    {LightColours, "MediaListFontSize", Real, 0, 0, Inner<&R::Fonts, &LookFonts::MediaListFontSize>, GiveLookToAll},
    {LightColours, "MediaListFontBold", Truth, 0, 0, Inner<&R::Fonts, &LookFonts::MediaListFontBold>, GiveLookToAll},
    {LightColours, "MediaListFontItalic", Truth, 0, 0, Inner<&R::Fonts, &LookFonts::MediaListFontItalic>,
     GiveLookToAll},

    {Quick, "0", Flag, 0, 1, At<&R::QuickElementTemplate, 0>},
    {Quick, "1", Flag, 0, 1, At<&R::QuickElementTemplate, 1>},
    {Quick, "2", Flag, 0, 1, At<&R::QuickElementTemplate, 2>},
    {Quick, "3", Flag, 0, 1, At<&R::QuickElementTemplate, 3>},
    {Quick, "4", Flag, 0, 1, At<&R::QuickElementTemplate, 4>},
    {Quick, "5", Flag, 0, 1, At<&R::QuickElementTemplate, 5>},
    {Quick, "6", Flag, 0, 1, At<&R::QuickElementTemplate, 6>},
    {Quick, "7", Flag, 0, 1, At<&R::QuickElementTemplate, 7>},
    {Quick, "8", Flag, 0, 1, At<&R::QuickElementTemplate, 8>},
    {Quick, "9", Flag, 0, 1, At<&R::QuickElementTemplate, 9>},

    {Complete, "0", Flag, 0, 1, At<&R::AutoCompleteTemplate, 0>},
    {Complete, "1", Flag, 0, 1, At<&R::AutoCompleteTemplate, 1>},
    {Complete, "2", Flag, 0, 1, At<&R::AutoCompleteTemplate, 2>},
    {Complete, "3", Flag, 0, 1, At<&R::AutoCompleteTemplate, 3>},

    {Nags, "0", Flag, 0, 1, At<&R::Nags, 0>},
    {Nags, "1", Flag, 0, 1, At<&R::Nags, 1>},
    {Nags, "2", Flag, 0, 1, At<&R::Nags, 2>},
    {Nags, "3", Flag, 0, 1, At<&R::Nags, 3>},
    {Nags, "4", Flag, 0, 1, At<&R::Nags, 4>},

    {MiscSection, "SpacerWidth", Number, 10, 200, In<&R::SpacerWidth>, ShowView<5>},
    {MiscSection, "SortGotoList", Flag, 0, 1, In<&R::SortGotoList>},
    {MiscSection, "UndoLimit", Number, -1, 9999, In<&R::UndoLimit>, ShowView<4>},
    {MiscSection, "OpenSaveInLevelDir", Flag, 0, 1, In<&R::OpenSaveInLevelDir>},
    {MiscSection, "BackupOnSave", Flag, 0, 1, In<&R::BackupOnSave>},
    {MiscSection, "DisableSoundLaunch", Flag, 0, 1, In<&R::DisableSoundLaunch>},
    {MiscSection, "QuickClose", Flag, 0, 1, In<&R::QuickClose>},
    {MiscSection, "SafeSystemBASIC", Flag, 0, 1, In<&R::SafeSystemBASIC>},
    {MiscSection, "AskBeforeMacros", Flag, 0, 1, In<&R::AskBeforeMacros>},
    {MiscSection, "MenuIcons", Flag, 0, 1, In<&R::MenuIcons>},
    {MiscSection, "Gradients", Flag, 0, 1, In<&R::Gradients>, ShowStrips},
    {MiscSection, "ShowLineNumbers", Flag, 0, 1, In<&R::ShowLineNumbers>, ShowView<1>},
    {MiscSection, "ShowSpaces", Flag, 0, 1, In<&R::ShowSpaces>, ShowView<2>},
    {MiscSection, "LineHints", Flag, 0, 1, In<&R::LineHints>, ShowView<6>},
    {MiscSection, "Thumbnails", Flag, 0, 1, In<&R::Thumbnails>, ShowView<7>},
    {MiscSection, "UseColour", Flag, 0, 1, In<&R::UseColour>, ShowView<3>},
    {MiscSection, "SuperTab", Flag, 0, 1, In<&R::SuperTab>, ShowView<5>},
    {MiscSection, "RecentLimit", Number, 10, 200, In<&R::RecentLimit>},
    {MiscSection, "ProjectLimit", Number, 3, 50, In<&R::ProjectLimit>},
    {MiscSection, "FindHistoryLimit", Number, 3, 50, In<&R::FindHistoryLimit>},
    {MiscSection, "ReplaceHistoryLimit", Number, 3, 50, In<&R::ReplaceHistoryLimit>},
    {MiscSection, "ScreenReader", Number, 0, 2, In<&R::ScreenReader>},
    {MiscSection, "ColourForm", Number, FollowDesktop, AlwaysDark, In<&R::ColourForm>, ShowColourForm},
    {MiscSection, "LineCommentLineChar", Character, 0, 0, In<&R::LineCommentLineChar>},
    {MiscSection, "LineCommentSearchChar", Character, 0, 0, In<&R::LineCommentSearchChar>},
    {MiscSection, "RNDPath", Path, 0, 0, In<&R::RNDPath>, DeriveGameFolders},
    {MiscSection, "ImageEditor", Path, 0, 0, In<&R::ImageEditor>},
    {MiscSection, "1stTime", Flag, 0, 1},

    {Window, "Left", Number, -FarthestPlace, FarthestPlace},
    {Window, "Top", Number, -FarthestPlace, FarthestPlace},
    {Window, "Width", Number, 1, FarthestPlace},
    {Window, "Height", Number, 1, FarthestPlace},
    {Window, "Max", Number, 0, 2},
};

/// The colours of one form: three keys a kind, and what belongs to none.
template <auto Form, std::size_t Kind>
void AddKind(std::vector<SettingRow>& rows, const char* section)
{
    const SyntaxRow& kind = SyntaxKeys()[Kind];
    rows.push_back(
        {section, kind.ColourKey, Colour, 0, LargestColour, OfKind<Form, Kind, &KindLook::Colour>, GiveLookToAll});
    rows.push_back(
        {section, kind.BackKey, Colour, 0, LargestColour, OfKind<Form, Kind, &KindLook::Back>, GiveLookToAll});
    rows.push_back(
        {section, kind.StyleKey, Number, 0, LargestStyle, OfKind<Form, Kind, &KindLook::Style>, GiveLookToAll});
}

template <auto Form, std::size_t... Kinds>
void AddForm(std::vector<SettingRow>& rows, const char* section, std::index_sequence<Kinds...>)
{
    (AddKind<Form, Kinds>(rows, section), ...);
    const auto add = [&](const char* key, SettingPlace (*place)(SettingsRecord&)) {
        rows.push_back({section, key, Colour, 0, LargestColour, place, GiveLookToAll});
    };
    add("MediaListBackColour", Inner<Form, &FormLook::MediaListBack>);
    add("MediaListColour", Inner<Form, &FormLook::MediaList>);
    add("HighlightedLineColour", Inner<Form, &FormLook::HighlightedLine>);
    add("WindowColour", Inner<Form, &FormLook::Window>);
}

std::vector<SettingRow> AllRows()
{
    constexpr std::make_index_sequence<9> kinds;
    std::vector<SettingRow> rows;
    AddForm<&R::Dark>(rows, DarkColours, kinds);
    AddForm<&R::Light>(rows, LightColours, kinds);
    rows.insert(rows.end(), std::begin(TableRows), std::end(TableRows));
    return rows;
}

/// The value as user.ini has it, within the row's bounds.
QString Written(const SettingRow& row, const QVariant& value)
{
    switch (row.Kind) {
    case Real:
        return QString::number(value.toDouble());
    case Truth:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case Text:
        return value.toString();
    case Character:
        return value.toString().left(1);
    case Path:
        return paths::Inside(value.toString());
    default:
        return QString::number(std::clamp(value.toInt(), row.Low, row.High));
    }
}

struct Keep
{
    const QString& Written;

    void operator()(int* place) const { *place = Written.toInt(); }
    void operator()(double* place) const { *place = Written.toDouble(); }
    void operator()(bool* place) const { *place = Written == QLatin1StringView("True"); }
    void operator()(QString* place) const { *place = Written; }
};

} // namespace

std::span<const SettingRow> SettingRows()
{
    static const std::vector<SettingRow> rows = AllRows();
    return rows;
}

const SettingRow& SettingOf(QLatin1StringView section, QLatin1StringView key)
{
    const auto rows = SettingRows();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const SettingRow& one) {
        return section == QLatin1StringView(one.Section) && key == QLatin1StringView(one.Key);
    });
    Q_ASSERT_X(row != rows.end(), "SettingOf", key.data());
    return *row;
}

QVariant SettingNow(const SettingRow& row)
{
    if (!row.Place)
        return ReadIni(QString::fromLatin1(row.Section), QString::fromLatin1(row.Key));
    return std::visit([](auto* place) { return QVariant(*place); }, row.Place(Frame.Settings));
}

void ChangeSetting(const SettingRow& row, const QVariant& value)
{
    const QString written = Written(row, value);
    if (row.Place)
        std::visit(Keep{written}, row.Place(Frame.Settings));
    WriteIni(written, QString::fromLatin1(row.Section), QString::fromLatin1(row.Key));
    if (row.Apply)
        row.Apply();
}

void WriteSettings(QLatin1StringView section)
{
    const SettingsBatch batch;
    for (const SettingRow& row : SettingRows())
        if (row.Place && section == QLatin1StringView(row.Section))
            WriteIni(Written(row, SettingNow(row)), QString::fromLatin1(row.Section), QString::fromLatin1(row.Key));
}
