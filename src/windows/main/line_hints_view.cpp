#include "windows/main/line_hints_view.h"

#include "conf/check_for_errors.h"
#include "frame/frame_state.h"

namespace {

constexpr int Pause = 250; // milliseconds without a key
constexpr int LinesAround = 20;
constexpr int LinesForKeys = 2000; // of a large text: how far above the view an equal key is looked for
constexpr qsizetype SmallText = 4 << 20;

/// The part of a text that is looked at for hints, and where the lines to look at begin in it.
struct Part
{
    QByteArrayView Bytes;
    qsizetype Start = 0;
};

/// Of a large text only a piece is taken: a view of all of it costs as much as the text.
Part PartFor(const EditorPane& pane, const LineSpan& lines)
{
    const qsizetype start = pane.LineStart(lines.First);
    if (pane.LineStart(pane.LineCount()) <= SmallText)
        return {pane.Bytes(), start};
    const int first = qMax(0, lines.First - LinesForKeys);
    return {pane.Bytes(first, lines.Last), start - pane.LineStart(first)};
}

} // namespace

LineHintsView::LineHintsView(QObject* parent) : QObject(parent)
{
    soon.setSingleShot(true);
    soon.setInterval(Pause);
    connect(&soon, &QTimer::timeout, this, &LineHintsView::Look);
}

void LineHintsView::Watch(EditorPane& pane)
{
    connect(&pane, &EditorPane::ViewMoved, &soon, qOverload<>(&QTimer::start));
    connect(&pane, &EditorPane::TextChanged, &soon, qOverload<>(&QTimer::start));
}

void LineHintsView::WordsChanged()
{
    context.reset();
    soon.start();
}

const HintContext& LineHintsView::Context()
{
    if (!context || mode != Frame.CurrentMode) {
        mode = Frame.CurrentMode;
        context = std::make_unique<HintContext>();
        context->BareLines = Frame.CurrentMode == ModeEdi;
        context->Repeats = Frame.CurrentMode == ModeHla;
        context->Check = CurrentCheckContext();
        context->Words = MakeHintWords(Frame.WordLists.at(mode));
        context->Words.LevelNumbers = mode == ModeMus;
    }
    return *context;
}

void LineHintsView::Look()
{
    if (Frame.Settings.LineHints != 1)
        return;
    EditorPane& pane = CurrentPane();
    if (Frame.CurrentMode == ModeTxt || pane.LineCount() == 0) {
        pane.SetLineMarks({});
        return;
    }
    const LineSpan seen = pane.VisibleLines();
    const LineSpan lines{qMax(0, seen.First - LinesAround), qMin(seen.Last + LinesAround, pane.LineCount() - 1)};
    const Part part = PartFor(pane, lines);
    std::vector<LineMark> marks;
    for (LineHint& hint : HintsForLines(part.Bytes, part.Start, lines.First, lines.Last, Context()))
        marks.push_back({hint.Line, hint.Level == HintLevel::Error, std::move(hint.Message)});
    pane.SetLineMarks(std::move(marks));
}
