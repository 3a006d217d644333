#include "windows/media/media_style.h"

#include "frame/frame_state.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QWidget>

namespace {

QColor FromBgr(int bgr)
{
    return {bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF};
}

QColor Between(const QColor& one, const QColor& other)
{
    return {(one.red() + other.red()) / 2, (one.green() + other.green()) / 2, (one.blue() + other.blue()) / 2};
}

/// A family that the desktop lacks falls to its own.
QFont ListFont()
{
    const SettingsRecord& settings = Frame.Settings;
    QFont font = QGuiApplication::font();
    if (QFontDatabase::hasFamily(settings.MediaListFontName))
        font.setFamily(settings.MediaListFontName);
    if (settings.MediaListFontSize > 0)
        font.setPointSizeF(settings.MediaListFontSize);
    font.setBold(settings.MediaListFontBold);
    font.setItalic(settings.MediaListFontItalic);
    return font;
}

} // namespace

void GiveMediaStyle(QWidget& list)
{
    const QColor back = FromBgr(Frame.Settings.MediaListBackColour), text = FromBgr(Frame.Settings.MediaListColour);
    QPalette colours = list.palette();
    for (const auto role : {QPalette::Base, QPalette::Button, QPalette::AlternateBase, QPalette::Window})
        colours.setColor(role, back);
    for (const auto role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
        colours.setColor(role, text);
    colours.setColor(QPalette::PlaceholderText, Between(text, back));
    for (const auto role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
        colours.setColor(QPalette::Disabled, role, Between(text, back));
    // The lists never have the focus, and what is selected in them counts all the same.
    const QPalette whole = QGuiApplication::palette();
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
        colours.setColor(QPalette::Inactive, role, whole.color(QPalette::Active, role));
    list.setPalette(colours);
    list.setFont(ListFont());
}
