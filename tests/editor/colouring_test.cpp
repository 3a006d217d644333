#include "pane_fixture.h"

#include "editor/colouring.h"
#include "editor/line_colours.h"

using Sci = QsciScintillaBase;

namespace {

LanguageObject Graphics()
{
    LanguageObject language;
    language.Keywords = u"yamyam\nboring[1]\nbackground.TITLE\nbackground\nboth\nbd_wall\n*:none:*\n"_s;
    language.TagEntities = u"moving\nleft\nboth\n"_s;
    language.TagElementNames = u"xpos\n[default]\nanim_mode\n"_s;
    language.TagAttributeNames = u"TITLE\nreverse\n"_s;
    language.SingleLineComments = u"#"_s;
    language.Operators = u".\n:"_s;
    language.StringDelims = QString(QChar(8));
    return language;
}

/// One letter a byte: Element, Action, Graphic command, Special, comment "#", operator ".", Number, string, other "-".
QByteArray Letters(const QByteArray& styles)
{
    QByteArray letters;
    for (const char style : styles)
        letters += uchar(style) < 9 ? "-EAGS#.N\""[uchar(style)] : 'P';
    return letters;
}

// Catches: a word split that is one, a part coloured that is only the beginning of a word, a number inside a name, a
// comment that ends early.
TEST(LineColours, WordsNumbersAndComments)
{
    const std::pair<QByteArray, QByteArray> cases[] = {
        {"yamyam.moving.left:  12", "EEEEEE.AAAAAA.AAAA.--NN"},
        {"yamyamx.xpos2", "-------.-----"},
        {"background.TITLE: x", "EEEEEEEEEEEEEEEE.--"},
        {"background.xpos", "EEEEEEEEEE.GGGG"},
        {"x.TITLE.[default]", "-.SSSSS.GGGGGGGGG"},
        {"boring[1].boring[2]", "EEEEEEEEE.-------N-"},
        {"both", "EEEE"},
        {"YamYam: Yam.pcx", "------.----.---"}, // in the letters it was given, and no other
        {"anim_mode:\tleft,reverse", "GGGGGGGGG.-AAAA-SSSSSSS"},
        {"a -5 +7 0x1F 0x 5x 1.5", "--NN-NN-NNNN-------N.N"},
        {"  # yamyam: 5", "--###########"},
        {"yamyam#left", "EEEEEE#####"},
        {"..:", "..."},
        {"x \bhi yamyam\b left \bopen", "--\"\"\"\"\"\"\"\"\"\"\"-AAAA-\"\"\"\"\""},
        {"", ""},
    };
    const LineColours colours(Graphics());
    for (const auto& [line, expected] : cases) {
        QByteArray styles(line.size(), 'x');
        colours.Colour({line.data(), size_t(line.size())}, styles.data());
        EXPECT_EQ(Letters(styles), expected) << line.toStdString();
    }
    LanguageObject plain;
    plain.Keywords = u"ok\n"_s;
    QByteArray styles(6, 'x');
    LineColours(plain).Colour("ok # 1", styles.data());
    EXPECT_EQ(Letters(styles), "EE---N");
}

struct ColouringTest : PaneTest
{
    ColouringTest()
    {
        Frame.Globals.RegisterLanguage(u"GFX"_s, Graphics());
        pane->SetLanguage(u"GFX"_s);
        Component()->resize(600, 300);
        Component()->show();
    }

    QByteArray Styles(int line)
    {
        Component()->grab();
        QByteArray styles;
        for (qsizetype at = pane->LineStart(line); at < pane->LineStart(line) + pane->GetLine(line).toUtf8().size();
             ++at)
            styles += char(Component()->SendScintilla(Sci::SCI_GETSTYLEAT, long(at)));
        return Letters(styles);
    }
};

// Catches: a line left in its old colours after an edit, an undo, a switch, another language or another text.
TEST_F(ColouringTest, ColoursFollowTheText)
{
    pane->SetText(u"left\nyamyam.xpos: 5\nleft"_s);
    EXPECT_EQ(Styles(1), "EEEEEE.GGGG.-N");
    pane->InsertText(u"#"_s, {1, 7, 1, 7});
    EXPECT_EQ(Styles(1), "EEEEEE.########");
    pane->InsertText(u"\n"_s, {1, 8, 1, 8});
    EXPECT_EQ(Styles(1), "EEEEEE.#");
    EXPECT_EQ(Styles(2), "GGGG.-N");
    pane->ExecuteCmd(CmdUndo);
    EXPECT_EQ(Styles(1), "EEEEEE.########");
    EXPECT_EQ(Styles(2), "AAAA");
    pane->SetColorSyntax(false);
    EXPECT_EQ(Styles(2), "----");
    pane->SetColorSyntax(true);
    EXPECT_EQ(Styles(2), "AAAA");
    pane->LoadBytes("a\nb\nleft 1");
    EXPECT_EQ(Styles(2), "AAAA-N");
    LanguageObject other = Graphics();
    other.TagEntities.clear();
    Frame.Globals.RegisterLanguage(u"GFX"_s, other);
    EXPECT_EQ(Styles(2), "-----N");
    pane->SetLanguage(u"none"_s);
    EXPECT_EQ(Styles(2), "-----N");
    pane->SetLanguage(u"GFX"_s);
    EXPECT_EQ(pane->Language(), u"GFX"_s);
}

// Catches: a jump or a scroll that colours what lies between.
TEST_F(ColouringTest, OnlyLinesInViewAreColoured)
{
    pane->LoadBytes(QByteArray("left: 1\n").repeated(100'000));
    EXPECT_EQ(Styles(0), "AAAA.-N");
    pane->ExecuteCmd(CmdDocumentEnd);
    EXPECT_EQ(Styles(99'990), "AAAA.-N");
    EXPECT_EQ(Styles(50'000), "-------");
    EXPECT_EQ(Styles(99'000), "-------");
    pane->InsertText(u"left\n"_s, {0, 0, 0, 0});
    EXPECT_EQ(Styles(99'991), "AAAA.-N") << "moved with its line";
    EXPECT_EQ(Styles(0), "----");
    pane->ExecuteCmd(CmdDocumentStart);
    EXPECT_EQ(Styles(0), "AAAA");
}

// Catches: a very long line that is laid out whole, whichever way it comes; one of whose text something is lost or
// stays unseen when it is short again; nobody who is told.
TEST_F(ColouringTest, OfAVeryLongLineTheFrontIsShown)
{
    const auto unseen = [&](qsizetype at) {
        return Component()->SendScintilla(Sci::SCI_GETSTYLEAT, long(at)) == StyleUnseen;
    };
    const auto plainIsShown = [&] {
        return Component()->SendScintilla(Sci::SCI_STYLEGETVISIBLE, long(StyleNormal)) != 0;
    };
    EXPECT_EQ(Component()->SendScintilla(Sci::SCI_STYLEGETVISIBLE, long(StyleUnseen)), 0);
    QList<std::pair<int, qsizetype>> cut;
    QObject::connect(pane.get(), &EditorPane::LineCut, [&](int line, qsizetype length) { cut.append({line, length}); });
    constexpr qsizetype Shown = Colouring::LongestShown;
    const QByteArray longLine(3 * Shown, 'x'), edge(Shown, 'y');
    const QByteArray text = "left: 1\n" + edge + '\n' + longLine + "\nlast";
    pane->LoadBytes(text);
    EXPECT_EQ(cut, (QList<std::pair<int, qsizetype>>{{2, 3 * Shown}}));
    EXPECT_TRUE(plainIsShown());
    const qsizetype start = pane->LineStart(2);
    EXPECT_FALSE(unseen(start - 2) || unseen(start + Shown - 1) || unseen(pane->LineStart(3)));
    EXPECT_TRUE(unseen(start + Shown) && unseen(start + 3 * Shown - 1));
    EXPECT_EQ(Styles(0), "AAAA.-N");
    pane->ExecuteCmd(CmdDocumentEnd);
    Styles(3);
    EXPECT_TRUE(unseen(start + Shown)) << "coloured in view";
    EXPECT_EQ(pane->FileBytes(), text);

    pane->ReplaceLines(2, 2, "short");
    EXPECT_FALSE(unseen(start + 3));
    pane->ExecuteCmd(CmdUndo);
    QCoreApplication::processEvents();
    EXPECT_TRUE(unseen(start + Shown) && plainIsShown());
    EXPECT_EQ(pane->FileBytes(), text);
    EXPECT_EQ(cut.size(), 2);
    pane->SetSel({2, int(Shown + 5), 2, int(3 * Shown)}, false);
    pane->ReplaceSel(u"\n"_s);
    Styles(3);
    EXPECT_EQ(pane->GetLine(3), QString());
    pane->InsertText(u"seen"_s, {3, 0, 3, 0});
    EXPECT_EQ(Styles(3), "----");
}

// Catches: printed colours wiped by the next colouring, by an edit beside or by the switch.
TEST_F(ColouringTest, PrintedColoursStay)
{
    Put(u"left|"_s);
    pane->PrintStyled(u" ok"_s, 0xFF, 0xFF00);
    EXPECT_EQ(Shown(), u"left ok|"_s);
    EXPECT_EQ(Styles(0), "AAAAPPP");
    const long style = Component()->SendScintilla(Sci::SCI_GETSTYLEAT, 5L);
    EXPECT_EQ(Component()->SendScintilla(Sci::SCI_STYLEGETFORE, style), 0xFF);
    EXPECT_EQ(Component()->SendScintilla(Sci::SCI_STYLEGETBACK, style), 0xFF00);
    pane->InsertText(u"left "_s, {0, 0, 0, 0});
    EXPECT_EQ(Styles(0), "AAAA-AAAAPPP");
    pane->SetColorSyntax(false);
    EXPECT_EQ(Styles(0), "---------PPP");
    pane->PrintStyled(u"!"_s, 0xFF, 0xFF00);
    pane->PrintStyled(u"?"_s, 0xFE, 0xFF00);
    EXPECT_EQ(Component()->SendScintilla(Sci::SCI_GETSTYLEAT, 12L), style);
    EXPECT_EQ(Component()->SendScintilla(Sci::SCI_GETSTYLEAT, 13L), style + 1);
}

// Catches: a slot that colours another kind, a background that does not follow the window, styles lost with the font.
TEST_F(ColouringTest, SlotsColourTheirKinds)
{
    constexpr int kinds[][4] = {{0, 4, 5, 0},   {7, 6, 7, 1},   {1, 8, 9, 2},   {6, 10, 11, 3},  {5, 14, 15, 5},
                                {8, 16, 17, 6}, {2, 20, 21, 8}, {3, 22, 23, 9}, {4, 24, 25, 10}, {33, 26, 27, 11}};
    const auto get = [&](unsigned message, int style) { return int(Component()->SendScintilla(message, long(style))); };
    pane->SetColor(0, 0x123456);
    for (const auto& [style, fore, back, font] : kinds) {
        EXPECT_EQ(get(Sci::SCI_STYLEGETBACK, style), 0x123456) << "as the window until it is set";
        EXPECT_EQ(pane->GetColor(back), -1);
        pane->SetColor(fore, 0x100000 + fore);
        pane->SetColor(back, 0x200000 + back);
        pane->SetFontStyle(font, font % 4);
    }
    pane->SetPaneFont(u"Courier New"_s, 9.75);
    for (const auto& [style, fore, back, font] : kinds) {
        EXPECT_EQ(get(Sci::SCI_STYLEGETFORE, style), 0x100000 + fore);
        EXPECT_EQ(get(Sci::SCI_STYLEGETBACK, style), 0x200000 + back);
        EXPECT_EQ(get(Sci::SCI_STYLEGETBOLD, style), font % 4 % 2);
        EXPECT_EQ(get(Sci::SCI_STYLEGETITALIC, style), font % 4 / 2);
        EXPECT_EQ(pane->GetColor(back), 0x200000 + back);
        EXPECT_EQ(pane->GetFontStyle(font), font % 4);
    }
    EXPECT_EQ(get(Sci::SCI_STYLEGETBACK, Sci::STYLE_DEFAULT), 0x123456);
    EXPECT_EQ(pane->FontName(), u"Courier New"_s);
    EXPECT_EQ(pane->FontSize(), 9.75);
    EXPECT_EQ(get(Sci::SCI_STYLEGETSIZEFRACTIONAL, 2), 975);
    for (const int outside : {-1, 64, 1000}) {
        pane->SetColor(outside, 1);
        pane->SetFontStyle(outside, 1);
        EXPECT_EQ(pane->GetColor(outside), -1);
        EXPECT_EQ(pane->GetFontStyle(outside), 0);
    }
}

// Catches: a highlight that is cut at the text's end, follows the caret instead of its line, or stays behind.
TEST_F(ColouringTest, HighlightedLineIsDrawnWhole)
{
    pane->SetColor(30, 0x0000FF);
    pane->SetText(u"a\nb\nc\nd"_s);
    const auto redLines = [&] {
        const QImage image = Component()->viewport()->grab().toImage();
        const int height = int(Component()->SendScintilla(Sci::SCI_TEXTHEIGHT, 0L));
        QList<int> lines;
        for (int line = 0; line < 6; ++line)
            if (image.pixelColor(image.width() - 5, line * height + height / 2) == QColor(Qt::red))
                lines << line;
        return lines;
    };
    EXPECT_EQ(redLines(), QList<int>());
    pane->SetHighlightedLine(2);
    EXPECT_EQ(redLines(), QList{2});
    pane->SetHighlightedLine(0);
    EXPECT_EQ(redLines(), QList{0});
    pane->ExecuteCmd(CmdLineDown);
    EXPECT_EQ(redLines(), QList{0});
    pane->InsertLine(0, u"new"_s);
    EXPECT_EQ(redLines(), QList{0});
    pane->SetHighlightedLine(99);
    EXPECT_EQ(redLines(), QList<int>());
    pane->SetHighlightedLine(-1);
    EXPECT_EQ(redLines(), QList<int>());
}

// Catches: numbers cut off in a long text, a margin without numbers.
TEST_F(ColouringTest, MarginFitsTheNumberOfLines)
{
    const auto margin = [&] { return Component()->SendScintilla(Sci::SCI_GETMARGINWIDTHN, 0L); };
    EXPECT_EQ(margin(), 0);
    pane->SetLineNumbering(true);
    const long narrow = margin();
    EXPECT_GT(narrow, 0);
    pane->AddText(u"\n"_s.repeated(100'000));
    const long wide = margin();
    EXPECT_GT(wide, narrow);
    pane->SetPaneFont(pane->FontName(), 20);
    EXPECT_GT(margin(), wide);
    pane->ExecuteCmd(CmdUndo);
    pane->SetLineNumbering(false);
    EXPECT_EQ(margin(), 0);
    pane->SetDisplayWhitespace(true);
    EXPECT_EQ(Component()->SendScintilla(Sci::SCI_GETVIEWWS), Sci::SCWS_VISIBLEALWAYS);
    pane->SetTabSize(42);
    EXPECT_EQ(Component()->SendScintilla(Sci::SCI_GETTABWIDTH), 42);
}

} // namespace
