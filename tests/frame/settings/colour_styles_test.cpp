#include "frame/settings/colour_styles.h"

#include "editor/looks.h"
#include "frame/program_scope.h"
#include "frame/settings/form_looks.h"
#include "frame/settings/shipped_settings.h"
#include "platform/contrast.h"

namespace {

constexpr std::size_t LineNumbers = 6;

double ContrastOf(int bgr, int other)
{
    return Contrast(FromBgr(bgr), FromBgr(other));
}

} // namespace

// Catches: a dark colour that does not read on its own background, on the caret's line or selected, a dark form that
// is light, one that loses the bold or italic of its light form.
TEST(ColourStyles, EveryTextOfADarkFormReads)
{
    for (const ColourStyle& style : ColourStyles()) {
        SCOPED_TRACE(style.Name);
        const FormLook& dark = style.Dark;
        EXPECT_TRUE(IsDarkColour(FromBgr(dark.Window)) && IsDarkColour(FromBgr(dark.MediaListBack)));
        for (std::size_t kind = 0; kind < dark.Kinds.size(); ++kind) {
            SCOPED_TRACE(kind);
            const KindLook& look = dark.Kinds[kind];
            EXPECT_GE(ContrastOf(look.Colour, look.Back), TextContrast);
            EXPECT_EQ(look.Style, style.Light.Kinds[kind].Style);
            if (kind == LineNumbers) // they stand beside the text
                continue;
            EXPECT_GE(ContrastOf(look.Colour, dark.HighlightedLine), TextContrast);
            EXPECT_GE(ContrastOf(look.Colour, Looks::SelectionBack(dark.Window)), TextContrast);
        }
        EXPECT_GE(ContrastOf(dark.MediaList, dark.MediaListBack), TextContrast);
        const QColor grey = Faded(FromBgr(dark.MediaList), FromBgr(dark.MediaListBack));
        EXPECT_GE(Contrast(grey, FromBgr(dark.MediaListBack)), TextContrast);
        EXPECT_NE(grey, FromBgr(dark.MediaList));
        EXPECT_GE(ContrastOf(Looks::SelectionBack(dark.Window), dark.Window), 1.4) << "a selection can be seen";
    }
}

// Catches: a grey that fades below what reads, or stays as strong as the text where there is room.
TEST(ColourStyles, FadedAndLegibleColoursRead)
{
    for (const auto& [text, back] :
         {std::pair(Qt::white, Qt::black), std::pair(Qt::black, Qt::white), std::pair(Qt::yellow, Qt::darkCyan)})
        EXPECT_GE(Contrast(Faded(text, back), back), std::min(TextContrast, Contrast(text, back)));
    EXPECT_LT(Contrast(Faded(Qt::white, Qt::black), Qt::black), 8);
    EXPECT_GE(Contrast(Legible(Qt::blue, Qt::black), Qt::black), TextContrast);
    EXPECT_EQ(Legible(Qt::blue, Qt::white), QColor(Qt::blue));
    EXPECT_NEAR(Contrast(Qt::white, Qt::black), 21, 0.01);
    EXPECT_EQ(ToBgr(FromBgr(0x123456)), 0x123456);
}

using FormLooks = FrameTest;

// Catches: shipped settings that are not the style "Default", and a pane or list that keeps the other form's colours
// when the desktop changes, or takes it although the user has fixed the form.
TEST_F(FormLooks, PanesAndListsFollowTheDesktopUnlessFixed)
{
    Run.Start();
    const ColourStyle& standard = ColourStyles().front();
    const auto shows = [&](const FormLook& look) {
        for (int tab = 0; tab < 8; ++tab)
            for (std::size_t kind = 0; kind < look.Kinds.size(); ++kind) {
                const KindLook shown = LookOf(Window.Pane(tab)).Kinds[kind];
                if (shown.Colour != look.Kinds[kind].Colour || shown.Back != look.Kinds[kind].Back ||
                    shown.Style != look.Kinds[kind].Style)
                    return false;
            }
        return LookOf(Window.Pane(7)).Window == look.Window &&
               LookOf(Window.Pane(7)).HighlightedLine == look.HighlightedLine &&
               Frame.Settings.MediaListBackColour == look.MediaListBack &&
               Frame.Settings.MediaListColour == look.MediaList;
    };
    EXPECT_TRUE(shows(standard.Light));
    SetDesktopForm(LookForm::Dark);
    EXPECT_TRUE(shows(standard.Dark));
    EXPECT_EQ(Window.Pane(3).FontName(), QString::fromLatin1(standard.MainFont));
    SetFormChoice(AlwaysLight);
    EXPECT_TRUE(shows(standard.Light));
    SetDesktopForm(LookForm::Light);
    SetFormChoice(AlwaysDark);
    EXPECT_TRUE(shows(standard.Dark));
    LoadSettings();
    EXPECT_TRUE(shows(standard.Light)) << "the choice was not written";
    EXPECT_EQ(Frame.Settings.Fonts.MainFontSize, standard.MainFontSize);
    EXPECT_EQ(Frame.Settings.Fonts.MediaListFontName, QString::fromLatin1(standard.MediaListFont));
}

// Catches: a dark form that is stored over the light one, or fonts that are not read back as written.
TEST_F(FormLooks, EachFormHasItsSection)
{
    Run.Start();
    const ColourStyle& princess = ColourStyles()[2];
    WriteLook(princess.Dark, LookForm::Dark);
    EXPECT_TRUE(Run.UserIni().contains("ElementColour=11534336\n"));
    SettingsReader reader;
    EXPECT_EQ(ReadLook(reader, SectionOf(LookForm::Dark)).Kinds[6].Back, princess.Dark.Kinds[6].Back);
    EXPECT_EQ(ReadLook(reader, SectionOf(LookForm::Light)).Window, ColourStyles()[0].Light.Window);
    const LookFonts fonts{QStringLiteral("Some Font"), QStringLiteral("Other"), 10.5, 7.25, true, false};
    WriteFonts(fonts);
    EXPECT_EQ(ReadFonts(reader), fonts);
    EXPECT_TRUE(Run.UserIni().contains("MediaListFontBold=True\nMediaListFontItalic=False"));
    EXPECT_EQ(reader.Corrected(), QStringList());
}

// Catches: settings of an older version, without the dark form, that are told as broken.
TEST_F(FormLooks, ASettingsFileWithoutTheDarkFormTakesItSilently)
{
    const QByteArray whole = Run.UserIni();
    const qsizetype dark = whole.indexOf("[Syntax Colours Dark]");
    Run.Edit(whole.sliced(dark, whole.indexOf("[Find History]") - dark), "");
    Frame.DesktopForm = LookForm::Dark;
    Run.Start();
    EXPECT_EQ(Run.TakeMessages(), QStringList());
    EXPECT_EQ(Window.Pane(0).GetColor(0), ColourStyles()[0].Dark.Window);
    Frame.DesktopForm = LookForm::Light;
}
