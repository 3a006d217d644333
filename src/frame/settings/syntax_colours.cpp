#include "frame/editor_pane.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/settings/settings_table.h"
#include "frame/settings/shipped_settings.h"

#include <QFontDatabase>

namespace {

constexpr int WindowSlot = 0, HighlightSlot = 30, StringSlot = 16, StringBackSlot = 17;

struct PaneFont
{
    QString Name;
    double Points;
};

/// A font that the desktop lacks falls to one that it has, with characters of one width.
PaneFont MainFont(SettingsReader& reader, const QString& section)
{
    const QString told = reader.Text(section, QStringLiteral("MainFont"));
    const double points = reader.Real(section, QStringLiteral("MainFontSize"));
    for (const QString& name : {told, QStringLiteral("Liberation Mono")})
        if (QFontDatabase::hasFamily(name))
            return {name, points};
    return {QFontDatabase::systemFont(QFontDatabase::FixedFont).family(), points};
}

struct Look
{
    std::array<int, 9> Colour, Back, Style;
    int Window, Highlight;
    PaneFont Font;
};

Look ReadLook(SettingsReader& reader, const QString& section)
{
    Look look;
    const auto number = [&](const char* key) {
        const SettingRow& row = SettingOf(QLatin1StringView("Syntax Colours"), QLatin1StringView(key));
        return reader.Number(section, QString::fromLatin1(key), row.Low, row.High);
    };
    for (std::size_t kind = 0; kind < SyntaxKeys().size(); ++kind) {
        const SyntaxRow& row = SyntaxKeys()[kind];
        look.Colour[kind] = number(row.ColourKey);
        look.Back[kind] = number(row.BackKey);
        look.Style[kind] = number(row.StyleKey);
    }
    look.Window = number("WindowColour");
    look.Highlight = number("HighlightedLineColour");
    look.Font = MainFont(reader, section);
    return look;
}

void GiveLook(EditorPane& pane, const Look& look)
{
    for (std::size_t kind = 0; kind < SyntaxKeys().size(); ++kind) {
        const SyntaxRow& row = SyntaxKeys()[kind];
        pane.SetColor(row.ColourSlot, look.Colour[kind]);
        pane.SetColor(row.BackSlot, look.Back[kind]);
        pane.SetFontStyle(row.StyleSlot, look.Style[kind]);
    }
    pane.SetColor(WindowSlot, look.Window);
    pane.SetColor(HighlightSlot, look.Highlight);
    pane.SetPaneFont(look.Font.Name, look.Font.Points);
    pane.SetColor(StringSlot, 255);
    pane.SetColor(StringBackSlot, 0);
}

} // namespace

void LoadSyntaxColours(EditorPane& pane, const QString& section, bool copyToAllPanes, SettingsReader& reader)
{
    const Look look = ReadLook(reader, section);
    GiveLook(pane, look);
    for (int tab = 1; copyToAllPanes && tab < 8; ++tab)
        GiveLook(Panes().Pane(tab), look);
}

void LoadSyntaxColours(EditorPane& pane, const QString& section, bool copyToAllPanes)
{
    SettingsReader reader;
    LoadSyntaxColours(pane, section, copyToAllPanes, reader);
}
