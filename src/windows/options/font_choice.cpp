#include "windows/options/font_choice.h"

#include "windows/parts/dialog_help.h"

#include <QFontDialog>

namespace {

constexpr int LongestName = 31;

FontChoice ChoiceOf(const QFont& font)
{
    return {font.family().left(LongestName), font.pointSizeF(), font.bold(), font.italic()};
}

QFont FontOf(const FontChoice& choice)
{
    QFont font(choice.Name);
    font.setPointSizeF(choice.Points);
    font.setBold(choice.Bold);
    font.setItalic(choice.Italic);
    return font;
}

} // namespace

std::optional<FontChoice> AskFont(const FontChoice& now, const QString& shown, QWidget* parent)
{
    const ModalScope scope;
    FontChoice visible = now;
    visible.Name = shown;
    QFontDialog dialog(FontOf(visible), parent);
    // The dialog knows whole sizes and installed families only: what it shows at first stands for `now`.
    const FontChoice first = ChoiceOf(dialog.currentFont());
    if (dialog.exec() != QDialog::Accepted)
        return {};
    const FontChoice chosen = ChoiceOf(dialog.selectedFont());
    FontChoice wanted = now;
    if (chosen.Name != first.Name)
        wanted.Name = chosen.Name;
    if (chosen.Points != first.Points)
        wanted.Points = chosen.Points;
    wanted.Bold = chosen.Bold;
    wanted.Italic = chosen.Italic;
    if (wanted == now)
        return {};
    return wanted;
}
