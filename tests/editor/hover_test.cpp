#include "pane_fixture.h"

#include <QHelpEvent>
#include <QToolTip>

using Sci = QsciScintillaBase;

namespace {

using Hover = PaneTest;

/// Lets the mouse rest at a place of the text.
void RestAt(QsciScintilla& widget, QPoint place)
{
    QHelpEvent event(QEvent::ToolTip, place, widget.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(widget.viewport(), &event);
}

} // namespace

// Catches: a tip for the wrong line or column, one that is taken for markup, one that stays when nothing is to be said.
TEST_F(Hover, AsksForTheTextUnderTheMouse)
{
    pane->SetText(u"first\nzip.xpos: 1\n"_s);
    QList<std::pair<int, int>> asked;
    pane->HoverText = [&](EditorPane&, int line, int column) {
        asked << std::pair(line, column);
        return line == 1 ? u"<b> & a tile"_s : QString();
    };
    Component()->resize(500, 300);
    Component()->show();
    QCoreApplication::processEvents();
    const auto placeOf = [&](int line, int column) {
        const long position = Component()->SendScintilla(Sci::SCI_FINDCOLUMN, line, long(column));
        return QPoint(int(Component()->SendScintilla(Sci::SCI_POINTXFROMPOSITION, 0, position)) + 2,
                      int(Component()->SendScintilla(Sci::SCI_POINTYFROMPOSITION, 0, position)) + 3);
    };
    RestAt(*Component(), placeOf(1, 4));
    EXPECT_EQ(asked, (QList{std::pair(1, 4)}));
    EXPECT_TRUE(QToolTip::text().contains(u"&lt;b&gt; &amp; a tile"_s)) << QToolTip::text().toStdString();
    RestAt(*Component(), placeOf(0, 2));
    EXPECT_EQ(asked.last(), std::pair(0, 2));
    RestAt(*Component(), QPoint(400, 200));
    EXPECT_EQ(asked.size(), 2) << "behind the text there is nothing to ask";
}

// Catches: marks that stay behind when the block changes or lines are taken away, or that lie on other lines.
TEST_F(Hover, MarksTheLinesOfOneBlock)
{
    pane->SetText(u"a\nb\nc\nd\ne\n"_s);
    const auto marked = [&] {
        QList<int> lines;
        for (int line = 0; line < pane->LineCount(); ++line)
            if (Component()->SendScintilla(Sci::SCI_MARKERGET, line) & (1 << 20))
                lines << line;
        return lines;
    };
    pane->MarkBlock(1, 3);
    EXPECT_EQ(marked(), (QList{1, 2, 3}));
    pane->MarkBlock(3, 4);
    EXPECT_EQ(marked(), (QList{3, 4}));
    pane->DeleteLine(1);
    EXPECT_EQ(marked(), QList<int>());
    pane->MarkBlock(0, 0);
    pane->MarkBlock(-1, -1);
    EXPECT_EQ(marked(), QList<int>());
}
