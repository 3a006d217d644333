#include "frame/program_scope.h"
#include "frame/vocabulary.h"

class Vocabulary : public FrameTest
{
protected:
    void SetUp() override
    {
        Run.Program.Write(QStringLiteral("data/lg_gfxele.ini"), "[Elements]\nCount=2\n1=yamyam\n2=Emerald\n3=beyond\n");
        Run.Program.Write(
            QStringLiteral("data/lg_gfxact.ini"),
            "[Actions]\nCount=1\n1=left\n[GraphicComs]\nCount=1\n1=xpos\n[Special]\nCount=1\n1=*:none:*\n");
        Run.Program.Write(
            QStringLiteral("data/lg_other.ini"),
            "[SFXElements]\nCount=1\n1=bell\n[SFXActions]\nCount=1\n1=ringing\n[SFXComs]\nCount=2\n1=volume\n"
            "[HLTComs]\nCount=1\n1=page\n[TXTElements]\nCount=1\n1=word\n[MUSElements]\nCount=-3\n"
            "[LVLElements]\nCount=many\n");
        Run.Start();
    }

    QString Field(const char* language, QString LanguageObject::*field) const
    {
        const LanguageObject* object = Frame.Globals.FindLanguage(QString::fromLatin1(language));
        return object ? object->*field : QStringLiteral("<no such language>");
    }
};

// Catches: sections read from the wrong file, sounds that lose or reorder the graphics words, help modes without the
// graphics elements, words behind the count, a count that is no number.
TEST_F(Vocabulary, EachModeHasItsLists)
{
    const QStringList graphics = {QStringLiteral("yamyam"), QStringLiteral("Emerald")};
    EXPECT_EQ(Frame.WordLists[ModeGfx][KindElements], graphics);
    EXPECT_EQ(Frame.WordLists[ModeSfx][KindElements], graphics + QStringList{QStringLiteral("bell")});
    EXPECT_EQ(Frame.WordLists[ModeSfx][KindGraphicComs],
              (QStringList{QStringLiteral("volume"), QStringLiteral("[NOT FOUND]")}));
    EXPECT_EQ(Frame.WordLists[ModeHlt][KindElements], graphics);
    EXPECT_EQ(Frame.WordLists[ModeHlt][KindGraphicComs], QStringList{QStringLiteral("page")});
    EXPECT_EQ(Frame.WordLists[ModeEdi][KindActions], QStringList{QStringLiteral("left")});
    EXPECT_TRUE(Frame.WordLists[ModeMus][KindElements].isEmpty());
    EXPECT_TRUE(Frame.WordLists[ModeLvl][KindElements].isEmpty());
}

// Catches: lists that are damaged or empty and nobody is told, or told of lists that are meant to be so; a word that is
// missing offered by the code list.
TEST_F(Vocabulary, DamagedListsAreTold)
{
    const QString told = Run.TakeMessages().join(u'|');
    for (const char* damaged :
         {"lg_other.ini  [SFXComs]", "[SFXSpecial]", "[MUSElements]", "[LVLElements]", "[TXTComs]"})
        EXPECT_TRUE(told.contains(QLatin1String(damaged))) << damaged;
    for (const char* whole : {"[Special]", "[HLTElements]", "[SFXElements]", "[HLTComs]"})
        EXPECT_FALSE(told.contains(QLatin1String(whole))) << whole;
    EXPECT_FALSE(CodeListWords(ModeSfx).contains(QStringLiteral("[NOT FOUND]")));
}

// Catches: an element of the sounds coloured in graphics, comments in plain text, strings coloured outside graphics.
TEST_F(Vocabulary, LanguagesFollowTheLists)
{
    EXPECT_EQ(Field("GFX", &LanguageObject::Keywords), QStringLiteral("yamyam\nEmerald\n"));
    EXPECT_EQ(Field("SFX", &LanguageObject::Keywords), QStringLiteral("yamyam\nEmerald\nbell\n"));
    EXPECT_EQ(Field("SFX", &LanguageObject::TagEntities), QStringLiteral("left\nringing\n"));
    EXPECT_EQ(Field("HLA", &LanguageObject::Operators), QStringLiteral(".\n:"));
    EXPECT_EQ(Field("TXT", &LanguageObject::SingleLineComments), QString());
    EXPECT_EQ(Field("TXT", &LanguageObject::Keywords), QStringLiteral("word\n"));
    EXPECT_EQ(Field("GFX", &LanguageObject::StringDelims), QString(QChar(8)));
    EXPECT_EQ(Field("SFX", &LanguageObject::StringDelims), QString());
}

// Catches: kinds that are offered although unticked, the placeholder of an empty list, a list in text mode.
TEST_F(Vocabulary, TheCodeListOffersWhatIsTicked)
{
    EXPECT_EQ(CodeListWords(ModeGfx), (QStringList{QStringLiteral("yamyam"), QStringLiteral("Emerald"),
                                                   QStringLiteral("left"), QStringLiteral("xpos")}));
    Frame.Settings.AutoCompleteTemplate = {0, 1, 0, 1};
    EXPECT_EQ(CodeListWords(ModeGfx), QStringList{QStringLiteral("left")});
    EXPECT_TRUE(CodeListWords(ModeTxt).isEmpty());
}

// Catches: an element offered before what can stand behind a dot, and a list that opens over the prose of a help text.
TEST_F(Vocabulary, BehindADotComesWhatCanFollow)
{
    EXPECT_EQ(CodeListWords(ModeGfx, QStringLiteral("yamyam.")).first(), QStringLiteral("left"));
    EXPECT_EQ(CodeListWords(ModeGfx, QStringLiteral("yamyam.LEFT.")).first(), QStringLiteral("xpos"));
    EXPECT_EQ(CodeListWords(ModeGfx, QStringLiteral("yamyam.left: ")).first(), QStringLiteral("yamyam"));
    EditorPane& pane = Window.txtBuffer();
    pane.SetText(QStringLiteral("yamyam.le"));
    pane.ExecuteCmd(CmdDocumentEnd);
    Frame.CurrentMode = ModeHlt;
    EXPECT_EQ(OfferedWords(pane, true).first(), QStringLiteral("left"));
    pane.SetText(QStringLiteral("yamyam: it le"));
    pane.ExecuteCmd(CmdDocumentEnd);
    EXPECT_TRUE(OfferedWords(pane, true).isEmpty());
    EXPECT_FALSE(OfferedWords(pane, false).isEmpty());
    Frame.CurrentMode = ModeTxt;
}

struct Pick
{
    const char *Before, *Item, *After;
    int Caret;
    const char* Behind = "";
};

// Catches: a picked item that is glued to a word it does not complete, that swallows the word of the line above, or
// leaves the caret beyond the item.
TEST_F(Vocabulary, APickCompletesTheWordAtTheCaret)
{
    const Pick picks[] = {
        {"yam", "yamyam", "yamyam", 6},
        {"emerald.mo", "moving", "emerald.moving", 14},
        {"top\r\n", "yamyam", "top\r\nyamyam", 6},
        {"Yam", "yamyam", "Yamyamyam", 9}, // letter case counts
        {"foo.", "left", "foo.left", 8},
        {"[def", "[default]", "[default]", 9}, // the bracket belongs to the item
        {"def", "[default]", "def[default]", 12},
        {"[d", "[default]", "[default]", 9, "]"}, // the closing one stands there already
    };
    for (const Pick& pick : picks) {
        SCOPED_TRACE(pick.Before);
        EditorPane& pane = Window.txtBuffer();
        pane.SetText(QString::fromLatin1(pick.Before));
        pane.ExecuteCmd(CmdDocumentEnd);
        pane.AddText(QString::fromLatin1(pick.Behind)); // behind the caret
        EXPECT_FALSE(PickCodeListItem(pane, QString::fromLatin1(pick.Item)));
        EXPECT_EQ(pane.Text(), QString::fromLatin1(pick.After));
        EXPECT_EQ(pane.GetSel(true).StartCol, pick.Caret);
        pane.ExecuteCmd(CmdUndo);
        EXPECT_EQ(pane.Text(), QString::fromLatin1(pick.Before) + QString::fromLatin1(pick.Behind))
            << "more than one undo step";
    }
}
