#include "editor/make_pane.h"
#include "frame/settings/colour_styles.h"
#include "frame/settings/form_looks.h"
#include "platform/images/contrast.h"
#include "platform/screen/text_family.h"
#include "windows/options/colours_page.h"
#include "windows/options/options_fixture.h"

#include <QColorDialog>
#include <QComboBox>
#include <QFontDialog>

namespace {

class ColoursPageTest : public OptionsWindow
{
protected:
    void Colours(const std::function<void(frmOptions&, ColoursPage&)>& act)
    {
        Options([&](frmOptions& window) {
            window.SSTab()->setCurrentIndex(1);
            act(window, *window.findChild<ColoursPage*>());
        });
    }

    /// Clicks a square and takes a colour in its dialog; none: cancels it.
    static void Choose(QWidget& window, const char* square, std::optional<int> bgr)
    {
        OnModal([&](QWidget& modal) {
            auto& dialog = dynamic_cast<QColorDialog&>(modal);
            EXPECT_EQ(dialog.currentColor(), FromBgr(Square(window, square).Colour()));
            if (!bgr) {
                dialog.setCurrentColor(Qt::red);
                dialog.reject();
                return;
            }
            dialog.setCurrentColor(FromBgr(*bgr));
            dialog.accept();
        });
        QTest::mouseClick(&Square(window, square), Qt::LeftButton);
    }

    static void ChooseFont(QWidget& window, const char* button, const std::function<void(QFontDialog&)>& act)
    {
        OnModal([&](QWidget& modal) {
            auto& dialog = dynamic_cast<QFontDialog&>(modal);
            act(dialog);
            dialog.accept();
        });
        Click(window, button);
    }

    static void PickStyle(QWidget& window, int index)
    {
        auto& combo = Part<QComboBox>(window, "cmbStyle");
        combo.setFocus();
        combo.setCurrentIndex(index);
        emit combo.activated(index);
    }
};

bool SameLook(const FormLook& one, const FormLook& other)
{
    for (std::size_t kind = 0; kind < one.Kinds.size(); ++kind)
        if (one.Kinds[kind].Colour != other.Kinds[kind].Colour || one.Kinds[kind].Back != other.Kinds[kind].Back ||
            one.Kinds[kind].Style != other.Kinds[kind].Style)
            return false;
    return one.Window == other.Window && one.HighlightedLine == other.HighlightedLine &&
           one.MediaList == other.MediaList && one.MediaListBack == other.MediaListBack;
}

} // namespace

// Catches: a square or tick of another kind, an example that is not the pane of today's colours, a style combo that
// stands on a style at the start.
TEST_F(ColoursPageTest, ShowsWhatIsSet)
{
    WriteIni(0x102030, QStringLiteral("Syntax Colours"), QStringLiteral("SpecialColour"));
    WriteIni(3, QStringLiteral("Syntax Colours"), QStringLiteral("NumbersStyle"));
    WriteIni(2, QStringLiteral("Syntax Colours"), QStringLiteral("ActionStyle"));
    Colours([](frmOptions& window, ColoursPage& page) {
        const EditorPane& example = page.Example(LookForm::Light).Pane();
        EXPECT_EQ(example.Language(), QStringLiteral("GFX"));
        EXPECT_EQ(example.LineCount(), 11);
        EXPECT_EQ(example.GetLine(2), QStringLiteral("yamyam.moving.left:                     NewYamyam.pcx"));
        EXPECT_EQ(Square(window, "picFontColour3").Colour(), 0x102030);
        EXPECT_EQ(Square(window, "picBackColour4").Colour(), 0xE6E4D5);
        EXPECT_EQ(Square(window, "picFontColour9").Colour(), 0xF4E8EA);
        EXPECT_EQ(Square(window, "picFontColour11").Colour(), 0xD4D4D4);
        EXPECT_TRUE(Part<QCheckBox>(window, "Check1_8").isChecked() && Part<QCheckBox>(window, "Check2_8").isChecked());
        EXPECT_FALSE(Part<QCheckBox>(window, "Check1_1").isChecked());
        EXPECT_TRUE(Part<QCheckBox>(window, "Check2_1").isChecked());
        EXPECT_EQ(Part<QComboBox>(window, "cmbStyle").currentIndex(), -1);
        EXPECT_EQ(Part<QComboBox>(window, "cmbStyle").placeholderText(), QStringLiteral("User"));
    });
}

// Catches: a style that misses a colour or font in either form, that reaches a pane or the file before Apply, an Apply
// that leaves out a key, a pane or the lists, one that touches the limits.
TEST_F(ColoursPageTest, AStyleWaitsForApplyAndThenRulesEverywhere)
{
    const QByteArray before = Run.UserIni();
    const ColourStyle& princess = ColourStyles()[2];
    Colours([&](frmOptions& window, ColoursPage& page) {
        PickStyle(window, 2);
        EXPECT_TRUE(SameLook(page.Example(LookForm::Light).Look(), princess.Light));
        EXPECT_TRUE(SameLook(page.Example(LookForm::Dark).Look(), princess.Dark));
        EXPECT_EQ(Square(window, "picFontColour0").Colour(), 0xE40BEA);
        EXPECT_TRUE(Part<QCheckBox>(window, "Check1_0").isChecked());
        EXPECT_EQ(Part<QPushButton>(window, "cmdFont").font().family(), QStringLiteral("Lucida Console"));
        Click(window, "cmdCancel1");
    });
    EXPECT_EQ(Run.UserIni(), before);
    EXPECT_TRUE(SameLook(LookOf(Window->Pane(0)), LookOf(Window->Pane(7))));
    EXPECT_EQ(Window->Pane(0).GetColor(8), 0xB00000);

    Colours([&](frmOptions& window, ColoursPage&) {
        Type(window, "txtFindMax", "9");
        PickStyle(window, 2);
        Click(window, "cmblApply1");
    });
    for (int tab = 0; tab < 8; ++tab) {
        FormLook shown = LookOf(Window->Pane(tab));
        shown.MediaList = princess.Light.MediaList;
        shown.MediaListBack = princess.Light.MediaListBack;
        EXPECT_TRUE(SameLook(shown, princess.Light)) << tab;
        EXPECT_EQ(Window->Pane(tab).FontSize(), 12) << tab;
    }
    const QByteArray ini = Run.UserIni();
    for (const char* line : {"ElementColour=14945258\n", "LineNumberBackStyle=0\n", "WindowColour=16777215\n",
                             "MainFont=Lucida Console\n", "MainFontSize=12\n", "MediaListFontName=Lucida Console\n",
                             "MediaListFontBold=False\n", "HighlightedLineColour=15984632\n", "FindHistoryLimit=30\n"})
        EXPECT_TRUE(ini.contains(line)) << line;
    LoadSettings();
    EXPECT_EQ(Run.TakeMessages(), QStringList());
    EXPECT_EQ(Window->Pane(4).GetColor(8), 0xE40BEA);
    Frame.DesktopForm = LookForm::Light;
    SetDesktopForm(LookForm::Dark);
    EXPECT_EQ(Window->Pane(4).GetColor(8), princess.Dark.Kinds[0].Colour);
    SetDesktopForm(LookForm::Light);
}

// Catches: backgrounds that do not go with the window, or that go although they were set apart; a cancelled dialog that
// changes something; squares of the lists and of the caret's line that colour a kind.
TEST_F(ColoursPageTest, SquaresColourTheExample)
{
    Colours([](frmOptions& window, ColoursPage& page) {
        const FormExample& example = page.Example(LookForm::Light);
        Choose(window, "picFontColour9", 0x123456);
        EXPECT_EQ(example.Look().Window, 0x123456);
        EXPECT_EQ(example.Look().Kinds[0].Back, 0x123456);
        EXPECT_EQ(Square(window, "picBackColour0").Colour(), 0x123456);
        EXPECT_EQ(example.Look().Kinds[4].Back, 0xE6E4D5);
        EXPECT_EQ(example.Look().Kinds[6].Back, 0xAEAEAE);
        Choose(window, "picFontColour2", 0x0000FF);
        Choose(window, "picBackColour2", 0x00FF00);
        Choose(window, "picBackColour2", {});
        EXPECT_EQ(example.Look().Kinds[2].Colour, 0x0000FF);
        EXPECT_EQ(example.Look().Kinds[2].Back, 0x00FF00);
        Choose(window, "picFontColour11", 0xABCDEF);
        EXPECT_EQ(example.Pane().GetColor(30), 0xABCDEF);
        Choose(window, "picFontColour10", 0x111111);
        Choose(window, "picBackColour10", 0x222222);
        EXPECT_EQ(example.Look().MediaList, 0x111111);
        EXPECT_EQ(example.Look().MediaListBack, 0x222222);
        Click(window, "Check1_7");
        Click(window, "Check2_7");
        EXPECT_EQ(example.Pane().GetFontStyle(0), 3);
        Click(window, "Check1_7");
        EXPECT_EQ(example.Pane().GetFontStyle(0), 2);
        Click(window, "Command2");
        EXPECT_EQ(example.Look().MediaListBack, 0x123456);
        EXPECT_EQ(example.Look().MediaList, 0x000000);
        EXPECT_EQ(example.Fonts().MediaListFontName, QStringLiteral("Courier New"));
        EXPECT_EQ(example.Fonts().MediaListFontSize, 9.75);
    });
}

// Catches: a size of 9.75 that becomes a whole number when the dialog is only confirmed, a name above 31 characters, a
// button that grows with a large font, a dialog that begins on another font than the texts show.
TEST_F(ColoursPageTest, FontsComeFromTheDialog)
{
    Colours([](frmOptions& window, ColoursPage& page) {
        const auto fonts = [&] { return page.Example(LookForm::Dark).Fonts(); };
        ChooseFont(window, "cmdFont", [](QFontDialog& dialog) {
            EXPECT_EQ(dialog.currentFont().family(), TextFamily(QStringLiteral("Courier New")));
        });
        EXPECT_EQ(fonts().MainFont, QStringLiteral("Courier New"));
        EXPECT_EQ(fonts().MainFontSize, 9.75);
        ChooseFont(window, "cmdFont",
                   [](QFontDialog& dialog) { dialog.setCurrentFont(QFont(QStringLiteral("Liberation Serif"), 24)); });
        EXPECT_EQ(fonts().MainFont, QStringLiteral("Liberation Serif"));
        EXPECT_EQ(fonts().MainFontSize, 24);
        EXPECT_EQ(Part<QPushButton>(window, "cmdFont").font().family(), QStringLiteral("Liberation Serif"));
        EXPECT_EQ(Part<QPushButton>(window, "cmdFont").font().pointSizeF(), 9.75);
        ChooseFont(window, "Command1", [](QFontDialog& dialog) {
            QFont font(QStringLiteral("Liberation Sans"), 11);
            font.setItalic(true);
            dialog.setCurrentFont(font);
        });
        EXPECT_EQ(fonts().MediaListFontName, QStringLiteral("Liberation Sans"));
        EXPECT_TRUE(fonts().MediaListFontItalic);
        Click(window, "cmblApply1");
    });
    EXPECT_EQ(Window->Pane(6).FontSize(), 24);
    EXPECT_EQ(Ini("Syntax Colours", "MediaListFontItalic"), QStringLiteral("True"));
}

// Catches: a change to the dark form that lands in the light one, a fixed form that waits for the next start.
TEST_F(ColoursPageTest, TheDarkFormIsChosenAndChangedApart)
{
    Colours([](frmOptions& window, ColoursPage& page) {
        Click(window, "optDark");
        EXPECT_EQ(Square(window, "picFontColour9").Colour(), ColourStyles()[0].Dark.Window);
        Choose(window, "picFontColour0", 0xFFFFFF);
        EXPECT_EQ(page.Example(LookForm::Light).Look().Kinds[0].Colour, 0xB00000);
        Click(window, "optLight");
        EXPECT_EQ(Square(window, "picFontColour0").Colour(), 0xB00000);
        Part<QComboBox>(window, "cmbColourForm").setCurrentIndex(AlwaysDark);
        Click(window, "cmblApply1");
    });
    EXPECT_EQ(Window->Pane(0).GetColor(8), 0xFFFFFF);
    EXPECT_EQ(Ini("Syntax Colours", "ElementColour"), QStringLiteral("11534336"));
    EXPECT_EQ(Ini("Syntax Colours Dark", "ElementColour"), QStringLiteral("16777215"));
    EXPECT_EQ(Ini("Misc", "ColourForm"), QStringLiteral("2"));
}
