#include "windows/options/colours_page.h"

#include "frame/editor_pane.h"
#include "frame/frame_state.h"
#include "frame/settings/settings_table.h"
#include "platform/images/contrast.h"
#include "platform/screen/text_family.h"
#include "windows/media/media_style.h"
#include "windows/options/colour_square.h"
#include "windows/options/font_choice.h"
#include "windows/parts/frame_columns.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>

namespace {

constexpr const char* KindTitles[] = {"Elements",   "Actions",     "Graphic Commands", "Special", "Comments",
                                      "Delimiters", "Line Number", "Normal Text",      "Numbers"};
constexpr int NormalKind = 7;
constexpr double LargestOnButton = 20; // points
constexpr int LinesShown = 11, ColumnsShown = 60;

/// Of a pane; a kind without a background of its own has the pane's.
int BackOfKind(const FormLook& look, int kind, const QWidget& page)
{
    const int back = look.Kinds.at(size_t(kind)).Back;
    return back < 0 ? ToBgr(page.palette().color(QPalette::Window)) : back;
}

const char* KeyOfSquare(bool back, int index)
{
    constexpr const char* Others[] = {"WindowColour", "MediaListColour", "HighlightedLineColour"};
    const auto at = size_t(index), kinds = SyntaxKeys().size();
    if (at < kinds)
        return back ? SyntaxKeys()[at].BackKey : SyntaxKeys()[at].ColourKey;
    return back ? "MediaListBackColour" : Others[at - kinds];
}

QString KindTitle(int kind)
{
    return QString::fromLatin1(KindTitles[kind]);
}

} // namespace

ColoursPage::ColoursPage(int index, QWidget* parent)
    : OptionPage(index, QStringLiteral("Colours"), parent),
      light(std::make_unique<FormExample>(LookForm::Light, QStringLiteral("txtExample"), this)),
      dark(std::make_unique<FormExample>(LookForm::Dark, QStringLiteral("txtExampleDark"), this)),
      panes(new QStackedWidget(this)),
      lists(new QStackedWidget(this))
{
    for (const FormExample* example : {light.get(), dark.get()}) {
        panes->addWidget(example->txtExample());
        lists->addWidget(example->txtExample2());
    }
    lists->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    panes->setMinimumHeight(fontMetrics().lineSpacing() * LinesShown);
    panes->setMinimumWidth(fontMetrics().averageCharWidth() * ColumnsShown / 2);

    auto* content = new QWidget(this);
    auto* frames = new QWidget(content);
    auto* columns = new FrameColumns(frames);
    columns->setContentsMargins({});
    columns->WishedColumns = 3;
    columns->addWidget(MakeStyles(frames));
    columns->addWidget(MakeForms(frames));
    for (int kind = 0; kind < int(std::size(KindTitles)); ++kind)
        columns->addWidget(MakeKind(kind, frames));
    columns->addWidget(MakeWindow(frames));
    columns->addWidget(MakeLine(frames));
    columns->addWidget(MakeMedia(frames));
    auto* column = new QVBoxLayout(content);
    column->addWidget(frames);
    column->addWidget(panes, 1);
    SetContent(content);
    ShowForm(FormInUse());
    ShowFonts();
}

ColoursPage::~ColoursPage() = default;

ColourSquare* ColoursPage::MakeSquare(bool back, int index, const QString& meaning, QWidget* parent)
{
    const QString name = back ? QStringLiteral("picBackColour") : QStringLiteral("picFontColour");
    auto* square = new ColourSquare(name + QString::number(index), meaning, parent);
    (back ? picBackColour : picFontColour).at(size_t(index)) = square;
    NameSetting(*square, KeyOfSquare(back, index));
    connect(square, &ColourSquare::Chosen, this, [this, back, index](int bgr) {
        if (back)
            TakeBackColour(index, bgr);
        else
            TakeTextColour(index, bgr);
    });
    return square;
}

QGroupBox* ColoursPage::MakeKind(int kind, QWidget* parent)
{
    auto* frame = new QGroupBox(KindTitle(kind), parent);
    auto* row = new QHBoxLayout(frame);
    row->addWidget(MakeSquare(false, kind, KindTitle(kind) + QStringLiteral(", text"), frame));
    row->addWidget(MakeSquare(true, kind, KindTitle(kind) + QStringLiteral(", background"), frame));
    const auto tick = [&](const char* caption, const char* name) {
        auto* box = new QCheckBox(QString::fromLatin1(caption), frame);
        box->setObjectName(QString::fromLatin1(name) + QString::number(kind));
        box->setAccessibleDescription(KindTitle(kind));
        NameSetting(*box, SyntaxKeys()[size_t(kind)].StyleKey);
        connect(box, &QCheckBox::clicked, this, [this, kind] { TakeStyle(kind); });
        row->addWidget(box);
        return box;
    };
    Check1[size_t(kind)] = tick("Bold", "Check1_");
    Check2[size_t(kind)] = tick("Italic", "Check2_");
    row->addStretch();
    contrasts[size_t(kind)] = new QLabel(frame);
    row->addWidget(contrasts[size_t(kind)]);
    return frame;
}

QGroupBox* ColoursPage::MakeWindow(QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Window"), parent);
    auto* row = new QHBoxLayout(frame);
    row->addWidget(MakeSquare(false, WindowSquare, QStringLiteral("Background of texts"), frame));
    cmdFont = new QPushButton(QStringLiteral("Font"), frame);
    cmdFont->setObjectName(QStringLiteral("cmdFont"));
    NameSetting(*cmdFont, "MainFont MainFontSize");
    cmdFont->setAutoDefault(false);
    connect(cmdFont, &QPushButton::clicked, this, &ColoursPage::ChooseMainFont);
    row->addWidget(cmdFont, 1);
    return frame;
}

QGroupBox* ColoursPage::MakeMedia(QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Media Lists"), parent);
    auto* column = new QVBoxLayout(frame);
    auto* row = new QHBoxLayout;
    row->addWidget(MakeSquare(false, MediaSquare, QStringLiteral("Media lists, text"), frame));
    row->addWidget(MakeSquare(true, MediaSquare, QStringLiteral("Media lists, background"), frame));
    Command1 = new QPushButton(QStringLiteral("Font"), frame);
    Command1->setObjectName(QStringLiteral("Command1"));
    NameSetting(*Command1, "MediaListFontName MediaListFontSize MediaListFontBold MediaListFontItalic");
    Command1->setAutoDefault(false);
    connect(Command1, &QPushButton::clicked, this, &ColoursPage::ChooseMediaFont);
    row->addWidget(Command1, 1);
    Command2 = new QPushButton(QStringLiteral("Copy Main Style"), frame);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command2->setToolTip(QStringLiteral("Sets the style of the Media List to the Text style"));
    Command2->setAutoDefault(false);
    connect(Command2, &QPushButton::clicked, this, &ColoursPage::CopyMainStyle);
    column->addLayout(row);
    column->addWidget(Command2);
    column->addWidget(lists);
    return frame;
}

QGroupBox* ColoursPage::MakeLine(QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Selected Line Colour"), parent);
    auto* row = new QHBoxLayout(frame);
    row->addWidget(MakeSquare(false, LineSquare, QStringLiteral("Line of the caret"), frame));
    row->addStretch();
    return frame;
}

QGroupBox* ColoursPage::MakeStyles(QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Styles"), parent);
    auto* row = new QHBoxLayout(frame);
    cmbStyle = new QComboBox(frame);
    cmbStyle->setObjectName(QStringLiteral("cmbStyle"));
    cmbStyle->setAccessibleName(frame->title());
    for (const ColourStyle& style : ColourStyles())
        cmbStyle->addItem(QString::fromLatin1(style.Name));
    cmbStyle->setCurrentIndex(-1);
    cmbStyle->setPlaceholderText(QStringLiteral("User"));
    connect(cmbStyle, &QComboBox::activated, this, &ColoursPage::ApplyColourScheme);
    row->addWidget(cmbStyle, 1);
    return frame;
}

QGroupBox* ColoursPage::MakeForms(QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Light And Dark"), parent);
    auto* column = new QVBoxLayout(frame);
    cmbColourForm = new QComboBox(frame);
    cmbColourForm->setObjectName(QStringLiteral("cmbColourForm"));
    cmbColourForm->setAccessibleName(QStringLiteral("Colours of Gemforge"));
    NameSetting(*cmbColourForm, "ColourForm");
    cmbColourForm->setToolTip(QStringLiteral("Which colours Gemforge uses"));
    cmbColourForm->addItems(
        {QStringLiteral("As the desktop"), QStringLiteral("Always light"), QStringLiteral("Always dark")});
    cmbColourForm->setCurrentIndex(Frame.Settings.ColourForm);
    column->addWidget(cmbColourForm);
    auto* row = new QHBoxLayout;
    forms = new QButtonGroup(this);
    for (const auto& [form, caption] : {std::pair(LookForm::Light, "Show Light"), {LookForm::Dark, "Show Dark"}}) {
        auto* choice = new QRadioButton(QString::fromLatin1(caption), frame);
        choice->setToolTip(QStringLiteral("Show and change these colours here"));
        choice->setObjectName(form == LookForm::Light ? QStringLiteral("optLight") : QStringLiteral("optDark"));
        forms->addButton(choice, int(form));
        row->addWidget(choice);
    }
    column->addLayout(row);
    connect(forms, &QButtonGroup::idClicked, this, [this](int form) { ShowForm(LookForm(form)); });
    return frame;
}

FormExample& ColoursPage::Shown() const
{
    return panes->currentIndex() == int(LookForm::Dark) ? *dark : *light;
}

const FormExample& ColoursPage::Example(LookForm form) const
{
    return form == LookForm::Dark ? *dark : *light;
}

void ColoursPage::ShowForm(LookForm form)
{
    panes->setCurrentIndex(int(form));
    lists->setCurrentIndex(int(form));
    forms->button(int(form))->setChecked(true);
    ShowLook();
}

/// Squares and ticks from the example on show.
void ColoursPage::ShowLook()
{
    const FormLook look = Shown().Look();
    for (int kind = 0; kind < int(look.Kinds.size()); ++kind) {
        const auto at = size_t(kind);
        picFontColour[at]->SetColour(look.Kinds[at].Colour);
        picBackColour[at]->SetColour(BackOfKind(look, kind, *this));
        Check1[at]->setChecked(look.Kinds[at].Style & 1);
        Check2[at]->setChecked(look.Kinds[at].Style & 2);
        ShowContrast(kind);
    }
    picFontColour[WindowSquare]->SetColour(look.Window);
    picFontColour[MediaSquare]->SetColour(look.MediaList);
    picBackColour[MediaSquare]->SetColour(look.MediaListBack);
    picFontColour[LineSquare]->SetColour(look.HighlightedLine);
}

/// The button shows the font, at its size unless that is large.
void ColoursPage::ShowFonts()
{
    const LookFonts fonts = light->Fonts();
    QFont shown = cmdFont->font();
    shown.setFamilies({fonts.MainFont, TextFamily(fonts.MainFont)});
    if (fonts.MainFontSize > 0 && fonts.MainFontSize <= LargestOnButton)
        shown.setPointSizeF(fonts.MainFontSize);
    cmdFont->setFont(shown);
    lists->setFixedHeight(light->txtExample2()->maximumHeight());
    cmdFont->setToolTip(QStringLiteral("%1, %2 points").arg(fonts.MainFont).arg(fonts.MainFontSize));
    Command1->setToolTip(QStringLiteral("%1, %2 points").arg(fonts.MediaListFontName).arg(fonts.MediaListFontSize));
}

void ColoursPage::ShowContrast(int kind)
{
    const auto at = size_t(kind);
    const double contrast = Contrast(FromBgr(picFontColour[at]->Colour()), FromBgr(picBackColour[at]->Colour()));
    contrasts[at]->setText(QString::number(contrast, 'f', 1));
    QFont font = contrasts[at]->font();
    font.setBold(contrast < TextContrast);
    contrasts[at]->setFont(font);
    contrasts[at]->setToolTip(contrast < TextContrast
                                  ? QStringLiteral("Contrast; below %1 text is hard to read").arg(TextContrast)
                                  : QStringLiteral("Contrast of text and background"));
}

void ColoursPage::ApplyColourScheme(int index)
{
    if (index >= 0 && index < int(ColourStyles().size()))
        chosenStyle = index;
    if (chosenStyle < 0)
        return;
    const ColourStyle& style = ColourStyles()[size_t(chosenStyle)];
    for (FormExample* example : {light.get(), dark.get()}) {
        const FormLook& look = example->Form() == LookForm::Dark ? style.Dark : style.Light;
        example->SetLook(look);
        example->SetMedia(look.MediaListBack, look.MediaList);
    }
    SetFonts({QString::fromLatin1(style.MainFont), QString::fromLatin1(style.MediaListFont), style.MainFontSize,
              style.MediaListFontSize, false, false});
    ShowLook();
}

void ColoursPage::TakeTextColour(int index, int bgr)
{
    if (index == WindowSquare) {
        TakeWindowColour(bgr);
        return;
    }
    FormLook look = Shown().Look();
    if (index == MediaSquare)
        Shown().SetMedia(look.MediaListBack, bgr);
    else if (index == LineSquare)
        look.HighlightedLine = bgr;
    else
        look.Kinds.at(size_t(index)).Colour = bgr;
    Shown().SetLook(look);
    ShowLook();
}

void ColoursPage::TakeBackColour(int index, int bgr)
{
    FormLook look = Shown().Look();
    if (index == MediaSquare) {
        Shown().SetMedia(bgr, look.MediaList);
    } else {
        look.Kinds.at(size_t(index)).Back = bgr;
        Shown().SetLook(look);
    }
    ShowLook();
}

/// Backgrounds that are the window's go with it; those set apart stay.
void ColoursPage::TakeWindowColour(int bgr)
{
    FormLook look = Shown().Look();
    for (int kind = 0; kind < int(look.Kinds.size()); ++kind)
        if (BackOfKind(look, kind, *this) == look.Window)
            look.Kinds[size_t(kind)].Back = bgr;
    look.Window = bgr;
    Shown().SetLook(look);
    ShowLook();
}

void ColoursPage::TakeStyle(int kind)
{
    FormLook look = Shown().Look();
    const auto at = size_t(kind);
    look.Kinds[at].Style = (Check1[at]->isChecked() ? 1 : 0) | (Check2[at]->isChecked() ? 2 : 0);
    Shown().SetLook(look);
}

void ColoursPage::SetFonts(const LookFonts& fonts)
{
    light->SetFonts(fonts);
    dark->SetFonts(fonts);
    ShowFonts();
}

void ColoursPage::ChooseMainFont()
{
    LookFonts fonts = light->Fonts();
    const std::optional<FontChoice> chosen =
        AskFont({fonts.MainFont, fonts.MainFontSize}, TextFamily(fonts.MainFont), this);
    if (!chosen || (chosen->Name == fonts.MainFont && chosen->Points == fonts.MainFontSize))
        return;
    fonts.MainFont = chosen->Name;
    fonts.MainFontSize = chosen->Points;
    SetFonts(fonts);
}

void ColoursPage::ChooseMediaFont()
{
    LookFonts fonts = light->Fonts();
    const std::optional<FontChoice> chosen =
        AskFont({fonts.MediaListFontName, fonts.MediaListFontSize, fonts.MediaListFontBold, fonts.MediaListFontItalic},
                MediaListFont(fonts).family(), this);
    if (!chosen)
        return;
    fonts.MediaListFontName = chosen->Name;
    fonts.MediaListFontSize = chosen->Points;
    fonts.MediaListFontBold = chosen->Bold;
    fonts.MediaListFontItalic = chosen->Italic;
    SetFonts(fonts);
}

/// The font as the button has it: a size that is too large for it stays behind.
void ColoursPage::CopyMainStyle()
{
    const FormLook look = Shown().Look();
    Shown().SetMedia(look.Window, look.Kinds[NormalKind].Colour);
    LookFonts fonts = light->Fonts();
    fonts.MediaListFontName = fonts.MainFont;
    fonts.MediaListFontSize = cmdFont->font().pointSizeF();
    SetFonts(fonts);
    ShowLook();
}

void ColoursPage::Apply()
{
    Frame.Settings.Light = light->Look();
    Frame.Settings.Dark = dark->Look();
    Frame.Settings.Fonts = light->Fonts();
    for (const LookForm form : {LookForm::Light, LookForm::Dark})
        WriteSettings(SectionOf(form));
    ChangeSetting(SettingOf(QLatin1StringView("Misc"), QLatin1StringView("ColourForm")),
                  cmbColourForm->currentIndex()); // gives all panes and lists their look
}
