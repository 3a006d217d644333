#include "frame/editor_pane.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/settings/settings_table.h"
#include "frame/settings/shipped_settings.h"

namespace {

constexpr int WindowSlot = 0, HighlightSlot = 30, StringSlot = 16, StringBackSlot = 17;

} // namespace

QLatin1StringView SectionOf(LookForm form)
{
    return QLatin1StringView(form == LookForm::Dark ? "Syntax Colours Dark" : "Syntax Colours");
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

FormLook& LookOf(LookForm form)
{
    return form == LookForm::Dark ? Frame.Settings.Dark : Frame.Settings.Light;
}

void SetDesktopForm(LookForm form)
{
    const LookForm before = FormInUse();
    Frame.DesktopForm = form;
    if (Frame.Host && FormInUse() != before)
        GiveLookToAll();
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

void GiveLookToAll()
{
    const LookFonts& fonts = Frame.Settings.Fonts;
    for (int tab = 0; tab < int(Frame.Documents.size()); ++tab) {
        GiveLook(Panes().Pane(tab), LookOf(FormInUse()));
        Panes().Pane(tab).SetPaneFont(fonts.MainFont, fonts.MainFontSize);
    }
    emit Events().MediaLooksChanged();
}

void LoadSyntaxColours(EditorPane& pane, const QString& section)
{
    SettingsReader reader;
    SettingsRecord read;
    for (const SettingRow& row : SettingRows())
        if (section == QLatin1StringView(row.Section) || SectionOf(LookForm::Light) == QLatin1StringView(row.Section))
            reader.Read(row, read);
    GiveLook(pane, section == SectionOf(LookForm::Dark) ? read.Dark : read.Light);
    pane.SetPaneFont(read.Fonts.MainFont, read.Fonts.MainFontSize);
}
