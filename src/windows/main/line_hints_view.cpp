#include "windows/main/line_hints_view.h"

#include "conf/document_hints.h"
#include "frame/frame_state.h"

namespace {

constexpr int Pause = 250; // milliseconds without a key
constexpr int LinesAround = 20;

} // namespace

LineHintsView::LineHintsView(QObject* parent) : QObject(parent)
{
    soon.setSingleShot(true);
    soon.setInterval(Pause);
    connect(&soon, &QTimer::timeout, this, &LineHintsView::Look);
    connect(&HintsOfDocument(), &DocumentHints::Changed, &soon, qOverload<>(&QTimer::start));
}

void LineHintsView::Watch(EditorPane& pane)
{
    connect(&pane, &EditorPane::ViewMoved, &soon, qOverload<>(&QTimer::start));
    connect(&pane, &EditorPane::TextChanged, &soon, qOverload<>(&QTimer::start));
}

void LineHintsView::WordsChanged()
{
    HintsOfDocument().Forget();
    soon.start();
}

void LineHintsView::Look()
{
    if (Frame.Settings.LineHints != 1)
        return;
    EditorPane& pane = CurrentPane();
    if (!MayHaveMarks() || pane.LineCount() == 0) {
        pane.SetLineMarks({});
        return;
    }
    const LineSpan seen = pane.VisibleLines();
    const LineSpan lines{qMax(0, seen.First - LinesAround), qMin(seen.Last + LinesAround, pane.LineCount() - 1)};
    std::vector<LineMark> marks;
    for (LineHint& hint : HintsOfDocument().InLines(lines.First, lines.Last))
        marks.push_back({hint.Line, hint.Level == HintLevel::Error, std::move(hint.Message)});
    pane.SetLineMarks(std::move(marks));
}
