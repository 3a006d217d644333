#include "windows/media/media_style.h"

#include "frame/frame_state.h"
#include "platform/images/contrast.h"
#include "platform/screen/text_family.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QWidget>

QFont MediaListFont(const LookFonts& fonts)
{
    QFont font = QGuiApplication::font();
    if (fonts.MediaListFontName == fonts.MainFont)
        font.setFamily(TextFamily(fonts.MainFont));
    else if (QFontDatabase::hasFamily(fonts.MediaListFontName))
        font.setFamily(fonts.MediaListFontName);
    if (fonts.MediaListFontSize > 0)
        font.setPointSizeF(fonts.MediaListFontSize);
    font.setBold(fonts.MediaListFontBold);
    font.setItalic(fonts.MediaListFontItalic);
    return font;
}

void GiveMediaStyle(QWidget& list)
{
    const FormLook& look = LookOf(FormInUse());
    GiveMediaStyle(list, FromBgr(look.MediaListBack), FromBgr(look.MediaList), Frame.Settings.Fonts);
}

void GiveMediaStyle(QWidget& list, const QColor& back, const QColor& text, const LookFonts& fonts)
{
    const QColor grey = Faded(text, back);
    QPalette colours = list.palette();
    for (const auto role : {QPalette::Base, QPalette::Button, QPalette::AlternateBase, QPalette::Window})
        colours.setColor(role, back);
    for (const auto role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
        colours.setColor(role, text);
    colours.setColor(QPalette::PlaceholderText, grey);
    for (const auto role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
        colours.setColor(QPalette::Disabled, role, grey);
    // The lists never have the focus, and what is selected in them counts all the same.
    const QPalette whole = QGuiApplication::palette();
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
        colours.setColor(QPalette::Inactive, role, whole.color(QPalette::Active, role));
    list.setPalette(colours);
    list.setFont(MediaListFont(fonts));
}
