#include "windows/options/form_example.h"

#include "editor/make_pane.h"
#include "frame/frame_state.h"
#include "platform/images/contrast.h"
#include "windows/media/media_style.h"

namespace {

constexpr const char* SampleLines[] = {
    "#----- Commented Text --------",
    "",
    "yamyam.moving.left:                     NewYamyam.pcx",
    "yamyam.moving.left.xpos:                12",
    "yamyam.moving.left.ypos:                3",
    "yamyam.moving.left.anim_mode:           pingpong2",
    "",
    "Font.text_1.PREVIEW:                    My_Font.pcx",
    "global.num_toons:                       9",
    "toon_1:                                 Toon1.pcx",
};
constexpr int SampleHighlight = 2;

void FillPane(EditorPane& pane)
{
    pane.SetLanguage(QStringLiteral("GFX"));
    for (const char* line : SampleLines)
        pane.AddText(QString::fromLatin1(line) + QStringLiteral("\r\n"));
    pane.SetLineNumbering(true);
    pane.SetHighlightedLine(SampleHighlight);
    pane.SetSel({}, true);
    pane.ClearUndoBuffer();
    pane.SetModified(false);
}

} // namespace

FormExample::FormExample(LookForm shown, const QString& name, QWidget* parent)
    : form(shown), pane(MakePane(parent)), media(new QPlainTextEdit(QStringLiteral("RocksDoor.pcx\nRocksElements.pcx")))
{
    QWidget* widget = WidgetOf(*pane);
    widget->setObjectName(name);
    widget->setAccessibleName(QStringLiteral("Example"));
    widget->setFocusPolicy(Qt::NoFocus); // a picture: Tab shall not stay in it
    media->setParent(parent);
    media->setObjectName(name + u'2');
    media->setAccessibleName(QStringLiteral("Example of the media lists"));
    media->setReadOnly(true);
    media->setLineWrapMode(QPlainTextEdit::NoWrap);
    media->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    media->setFocusPolicy(Qt::NoFocus);
    FillPane(*pane);
    LoadSyntaxColours(*pane, SectionOf(form));
    const FormLook& look = LookOf(form);
    mediaBack = look.MediaListBack;
    mediaText = look.MediaList;
    fonts = Frame.Settings.Fonts;
    ShowMediaStyle();
}

FormExample::~FormExample() = default;

QWidget* FormExample::txtExample() const
{
    return WidgetOf(*pane);
}

FormLook FormExample::Look() const
{
    FormLook look = LookOf(*pane);
    look.MediaListBack = mediaBack;
    look.MediaList = mediaText;
    return look;
}

LookFonts FormExample::Fonts() const
{
    LookFonts shown = fonts;
    shown.MainFont = pane->FontName();
    shown.MainFontSize = pane->FontSize();
    return shown;
}

void FormExample::SetLook(const FormLook& look)
{
    GiveLook(*pane, look);
}

void FormExample::SetMedia(int back, int text)
{
    mediaBack = back;
    mediaText = text;
    ShowMediaStyle();
}

void FormExample::SetFonts(const LookFonts& wanted)
{
    fonts = wanted;
    pane->SetPaneFont(fonts.MainFont, fonts.MainFontSize);
    ShowMediaStyle();
}

void FormExample::ShowMediaStyle()
{
    GiveMediaStyle(*media, FromBgr(mediaBack), FromBgr(mediaText), fonts);
    const int lines = media->fontMetrics().lineSpacing() * 2;
    media->setFixedHeight(lines + 2 * media->frameWidth() + 2 * int(media->document()->documentMargin()) + 4);
}
