#include "frame/editor_pane.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/settings/form_looks.h"
#include "frame/settings/settings.h"
#include "frame/settings/shipped_settings.h"

namespace {

constexpr int WindowSlot = 0, HighlightSlot = 30, StringSlot = 16, StringBackSlot = 17;
constexpr int LargestColour = 0xFFFFFF;
const QString LightSection = QStringLiteral("Syntax Colours");
const QString DarkSection = QStringLiteral("Syntax Colours Dark");

struct ColourKey
{
    const char* Key;
    int FormLook::*Value;
};

/// Beside the three of each kind.
constexpr ColourKey ColourKeys[] = {
    {"MediaListBackColour", &FormLook::MediaListBack},
    {"MediaListColour", &FormLook::MediaList},
    {"HighlightedLineColour", &FormLook::HighlightedLine},
    {"WindowColour", &FormLook::Window},
};

QString TruthText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

} // namespace

QString SectionOf(LookForm form)
{
    return form == LookForm::Dark ? DarkSection : LightSection;
}

FormLook ReadLook(SettingsReader& reader, const QString& section)
{
    FormLook look{};
    const auto number = [&](const char* key, int high) {
        return reader.Number(section, QString::fromLatin1(key), 0, high);
    };
    for (std::size_t kind = 0; kind < SyntaxKeys().size(); ++kind) {
        const SyntaxRow& row = SyntaxKeys()[kind];
        look.Kinds[kind] = {number(row.ColourKey, LargestColour), number(row.BackKey, LargestColour),
                            number(row.StyleKey, 3)};
    }
    for (const ColourKey& row : ColourKeys)
        look.*row.Value = number(row.Key, LargestColour);
    return look;
}

LookFonts ReadFonts(SettingsReader& reader)
{
    const auto key = [](const char* name) { return QString::fromLatin1(name); };
    LookFonts fonts;
    fonts.MainFont = reader.Text(LightSection, key("MainFont"));
    fonts.MainFontSize = reader.Real(LightSection, key("MainFontSize"));
    fonts.MediaListFontName = reader.Text(LightSection, key("MediaListFontName"));
    fonts.MediaListFontSize = reader.Real(LightSection, key("MediaListFontSize"));
    fonts.MediaListFontBold = reader.Truth(LightSection, key("MediaListFontBold"));
    fonts.MediaListFontItalic = reader.Truth(LightSection, key("MediaListFontItalic"));
    return fonts;
}

void WriteLook(const FormLook& look, LookForm form)
{
    const SettingsBatch batch;
    const auto write = [&](const char* key, int value) { WriteIni(value, SectionOf(form), QString::fromLatin1(key)); };
    for (std::size_t kind = 0; kind < SyntaxKeys().size(); ++kind) {
        const SyntaxRow& row = SyntaxKeys()[kind];
        write(row.ColourKey, look.Kinds[kind].Colour);
        write(row.BackKey, look.Kinds[kind].Back);
        write(row.StyleKey, look.Kinds[kind].Style);
    }
    for (const ColourKey& row : ColourKeys)
        write(row.Key, look.*row.Value);
}

void WriteFonts(const LookFonts& fonts)
{
    const SettingsBatch batch;
    const auto write = [&](const char* key, const QString& value) {
        WriteIni(value, LightSection, QString::fromLatin1(key));
    };
    write("MediaListFontName", fonts.MediaListFontName);
    write("MediaListFontSize", QString::number(fonts.MediaListFontSize));
    write("MediaListFontBold", TruthText(fonts.MediaListFontBold));
    write("MediaListFontItalic", TruthText(fonts.MediaListFontItalic));
    write("MainFont", fonts.MainFont);
    write("MainFontSize", QString::number(fonts.MainFontSize));
}

FormLook LookOf(const EditorPane& pane)
{
    FormLook look{};
    for (std::size_t kind = 0; kind < SyntaxKeys().size(); ++kind) {
        const SyntaxRow& row = SyntaxKeys()[kind];
        look.Kinds[kind] = {pane.GetColor(row.ColourSlot), pane.GetColor(row.BackSlot),
                            pane.GetFontStyle(row.StyleSlot)};
    }
    look.Window = pane.GetColor(WindowSlot);
    look.HighlightedLine = pane.GetColor(HighlightSlot);
    return look;
}

void GiveLook(EditorPane& pane, const FormLook& look)
{
    for (std::size_t kind = 0; kind < SyntaxKeys().size(); ++kind) {
        const SyntaxRow& row = SyntaxKeys()[kind];
        pane.SetColor(row.ColourSlot, look.Kinds[kind].Colour);
        pane.SetColor(row.BackSlot, look.Kinds[kind].Back);
        pane.SetFontStyle(row.StyleSlot, look.Kinds[kind].Style);
    }
    pane.SetColor(WindowSlot, look.Window);
    pane.SetColor(HighlightSlot, look.HighlightedLine);
    pane.SetColor(StringSlot, 255);
    pane.SetColor(StringBackSlot, 0);
}

void GiveLookToAll(const FormLook& look, const LookFonts& fonts)
{
    for (int tab = 0; tab < int(Frame.Documents.size()); ++tab) {
        GiveLook(Panes().Pane(tab), look);
        Panes().Pane(tab).SetPaneFont(fonts.MainFont, fonts.MainFontSize);
    }
    SettingsRecord& settings = Frame.Settings;
    settings.MediaListBackColour = look.MediaListBack;
    settings.MediaListColour = look.MediaList;
    settings.Fonts = fonts;
    emit Events().MediaLooksChanged();
}

LookForm FormInUse()
{
    switch (Frame.Settings.ColourForm) {
    case AlwaysLight:
        return LookForm::Light;
    case AlwaysDark:
        return LookForm::Dark;
    default:
        return Frame.DesktopForm;
    }
}

namespace {

void UseForm()
{
    SettingsReader reader;
    GiveLookToAll(ReadLook(reader, SectionOf(FormInUse())), Frame.Settings.Fonts);
}

} // namespace

void SetDesktopForm(LookForm form)
{
    const LookForm before = FormInUse();
    Frame.DesktopForm = form;
    if (Frame.Host && FormInUse() != before)
        UseForm();
}

void SetFormChoice(int choice)
{
    const LookForm before = FormInUse();
    Frame.Settings.ColourForm = choice;
    if (FormInUse() != before)
        UseForm();
}

void LoadSyntaxColours(EditorPane& pane, const QString& section)
{
    SettingsReader reader;
    const LookFonts fonts = ReadFonts(reader);
    GiveLook(pane, ReadLook(reader, section));
    pane.SetPaneFont(fonts.MainFont, fonts.MainFontSize);
}
