#include "editor/margin_marks.h"
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

QWidget* MarginOf(const QsciScintilla& widget)
{
    for (QObject* child : widget.children())
        if (auto* margin = dynamic_cast<MarginMarks*>(child))
            return margin;
    return nullptr;
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
    pane->HoverPicture = [](EditorPane&, int, int) { return QImage(2, 2, QImage::Format_RGB32); };
    RestAt(*Component(), placeOf(1, 3));
    EXPECT_TRUE(QToolTip::text().startsWith(u"<img src='data:image/png;base64,"_s));
    asked.removeLast();
    RestAt(*Component(), placeOf(0, 2));
    EXPECT_EQ(asked.last(), std::pair(0, 2));
    RestAt(*Component(), QPoint(400, 200));
    EXPECT_EQ(asked.size(), 2) << "behind the text there is nothing to ask";
}

// Catches: marks that stay behind when the block changes or lines are taken away, or that lie on other lines.
TEST_F(Hover, MarksTheLinesOfOneBlock)
{
    pane->SetText(u"a\nb\nc\nd\ne\n"_s);
    Component()->resize(500, 300);
    Component()->show();
    const int height = int(Component()->SendScintilla(Sci::SCI_TEXTHEIGHT, 0UL));
    const auto marked = [&] {
        QCoreApplication::processEvents();
        const QImage shown = Component()->viewport()->parentWidget()->grab().toImage();
        const QWidget* margin = MarginOf(*Component());
        const QPoint bar(margin->x() + margin->width() - 2, margin->y() + height / 2);
        QList<int> lines;
        for (int line = 0; line < pane->LineCount(); ++line)
            if (shown.pixelColor(bar + QPoint(0, line * height)) != shown.pixelColor(bar + QPoint(0, 9 * height)))
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

// Catches: a mark that stays where its line was when lines above are taken away, a line that says nothing or what
// belongs to another one, room for marks that nobody asked for.
TEST_F(Hover, LineMarksMoveWithTheirLines)
{
    pane->SetText(u"a\nb\nc\nd\ne\n"_s);
    Component()->resize(500, 300);
    Component()->show();
    QCoreApplication::processEvents();
    const int narrow = MarginOf(*Component())->width();
    pane->ShowLineMarks(true);
    pane->SetLineMarks({{.Line = 3, .Strong = true, .Message = u"wrong here"_s}});
    pane->DeleteLine(0);
    QCoreApplication::processEvents();
    Component()->viewport()->repaint();
    EXPECT_GT(MarginOf(*Component())->width(), narrow);
    EXPECT_EQ(static_cast<MarginMarks*>(MarginOf(*Component()))->MessagesOf(2), u"wrong here"_s);
    const int height = int(Component()->SendScintilla(Sci::SCI_TEXTHEIGHT, 0UL));
    RestAt(*Component(), QPoint(2, 2 * height + 3));
    EXPECT_TRUE(QToolTip::text().contains(u"wrong here"_s));
    pane->ShowLineMarks(false);
    Component()->viewport()->repaint();
    EXPECT_EQ(MarginOf(*Component())->width(), narrow);
}
