#include "frame/settings/colour_styles.h"

#include "editor/looks.h"
#include "frame/frame_events.h"
#include "frame/program_scope.h"
#include "frame/settings/settings_table.h"
#include "platform/images/contrast.h"

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
               LookOf(FormInUse()).MediaListBack == look.MediaListBack;
    };
    EXPECT_TRUE(shows(standard.Light));
    SetDesktopForm(LookForm::Dark);
    EXPECT_TRUE(shows(standard.Dark));
    EXPECT_EQ(Window.Pane(3).FontName(), QString::fromLatin1(standard.MainFont));
    int fixed = 0; // the windows' own colours go by it
    QObject::connect(&Events(), &FrameEvents::ColourFormChanged, &Events(), [&fixed] { ++fixed; });
    ChangeSetting(SettingOf(QLatin1StringView("Misc"), QLatin1StringView("ColourForm")), AlwaysLight);
    EXPECT_TRUE(shows(standard.Light));
    EXPECT_EQ(fixed, 1);
    SetDesktopForm(LookForm::Light);
    ChangeSetting(SettingOf(QLatin1StringView("Misc"), QLatin1StringView("ColourForm")), AlwaysDark);
    EXPECT_TRUE(shows(standard.Dark));
    LoadSettings();
    EXPECT_TRUE(shows(standard.Dark)) << "the choice was not written";
    EXPECT_EQ(Frame.Settings.Fonts.MainFontSize, standard.MainFontSize);
    EXPECT_EQ(Frame.Settings.Fonts.MediaListFontName, QString::fromLatin1(standard.MediaListFont));
}

// Catches: a dark form that is stored over the light one, a key of a form that is not read back as written.
TEST_F(FormLooks, EachFormHasItsSection)
{
    Run.Start();
    const ColourStyle& princess = ColourStyles()[2];
    Frame.Settings.Dark = princess.Dark;
    Frame.Settings.Fonts.MediaListFontBold = true;
    WriteSettings(SectionOf(LookForm::Dark));
    EXPECT_TRUE(Run.UserIni().contains("ElementColour=11534336\n"));
    LoadSyntaxColours(Window.txtBuffer(), SectionOf(LookForm::Dark));
    EXPECT_EQ(LookOf(Window.txtBuffer()).Kinds[6].Back, princess.Dark.Kinds[6].Back);
    EXPECT_EQ(LookOf(Window.txtBuffer()).HighlightedLine, princess.Dark.HighlightedLine);
    LoadSyntaxColours(Window.txtBuffer(), SectionOf(LookForm::Light));
    EXPECT_EQ(LookOf(Window.txtBuffer()).Window, ColourStyles()[0].Light.Window);
    WriteSettings(SectionOf(LookForm::Light));
    EXPECT_TRUE(Run.UserIni().contains("MediaListFontBold=True\nMediaListFontItalic=False"));
    EXPECT_TRUE(Run.UserIni().contains("MainFontSize=9.75\n"));
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
