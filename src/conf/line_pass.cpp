#include "conf/line_pass.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/run_scope.h"

#include <algorithm>
#include <cstring>

namespace {

/// Passes repaint the progress bar at most this often.
constexpr qint64 ProgressEvery = 50;

/// Lines first to last, without the break after the last one.
QByteArrayView WholeLines(const DocumentText& pane, int first, int last)
{
    const QByteArrayView all = pane.Bytes();
    const qsizetype from = pane.LineStart(first);
    if (last + 1 >= pane.LineCount())
        return all.sliced(from);
    qsizetype to = pane.LineStart(last + 1);
    if (to > from && all.at(to - 1) == '\n')
        --to;
    if (to > from && all.at(to - 1) == '\r')
        --to;
    return all.sliced(from, to - from);
}

/// The first line feed or carriage return, or the end. In short stretches: a text may have one kind of them alone, and
/// looking for the other one then would run to its end with every line.
const char* BreakFrom(const char* at, const char* end)
{
    constexpr std::ptrdiff_t Stretch = 256;
    for (; at < end; at += Stretch) {
        const auto size = size_t(std::min(Stretch, end - at));
        const auto* feed = static_cast<const char*>(std::memchr(at, '\n', size));
        const auto* back = static_cast<const char*>(std::memchr(at, '\r', feed ? size_t(feed - at) : size));
        if (back || feed)
            return back ? back : feed;
    }
    return end;
}

} // namespace

PassProgress ThrottledProgress(int maximum, RunScope& run)
{
    QElapsedTimer timer;
    timer.start();
    return [maximum, timer, &run](int done) mutable {
        if (timer.elapsed() >= ProgressEvery) {
            timer.restart();
            Busy().ShowProgress(maximum, done);
        }
        return run.Turn();
    };
}

ByteLine TakeLine(QByteArrayView bytes, qsizetype& from)
{
    if (from >= bytes.size()) // nothing left; memchr takes no null pointer
        return {};
    const char* start = bytes.data() + from;
    const char* end = bytes.data() + bytes.size();
    const char* stop = BreakFrom(start, end);
    const char* next = stop;
    if (next < end && *next == '\r')
        ++next;
    if (next < end && *next == '\n')
        ++next;
    from += next - start;
    return {QByteArrayView(start, stop - start), QByteArrayView(stop, next - stop)};
}

void RunPassOnSelection(DocumentText& text, const QString& name, const LinePass& pass)
{
    Range selection = text.GetSel(true);
    if (selection.EndLine > selection.StartLine && selection.EndCol == 0)
        --selection.EndLine; // where Select Element Block ends, the next block begins
    const int lines = selection.EndLine - selection.StartLine + 1;
    RunScope run(RunKind::Pass, name);
    Busy().ShowProgress(lines, 0);
    const QByteArrayView before = WholeLines(text, selection.StartLine, selection.EndLine);
    const QByteArray after = pass(before, ThrottledProgress(lines, run));
    Busy().HideProgress();
    if (run.Stopped()) {
        ShowNotice(name + QStringLiteral(" was stopped; the text is as it was"));
        return;
    }
    UndoGroup group(text);
    text.ReplaceLines(selection.StartLine, selection.EndLine, after);
    text.SetSel({.StartLine = selection.StartLine, .EndLine = selection.StartLine}, true);
}
