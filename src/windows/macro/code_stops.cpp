#include "windows/macro/code_stops.h"

#include "frame/editor_pane.h"
#include "frame/messages/asker.h"
#include "frame/run_scope.h"
#include "macro/language/run_state.h"
#include "macro/stopped_run.h"

#include <QEventLoop>
#include <algorithm>

namespace {

/// The line that runs where a line without a command is meant; -1: none.
int RunningLine(const RunState& run, int line)
{
    return line >= 0 && line < run.Code.LastLine ? run.Code.NextFrom[size_t(line)] : -1;
}

} // namespace

CodeStops::CodeStops(EditorPane& ofWorkbench) : code(ofWorkbench)
{
    code.SetStops({});
    connect(&code, &EditorPane::MarginPressed, this, &CodeStops::Toggle);
}

void CodeStops::Toggle(int line)
{
    std::vector<LineMark> stops = code.Stops();
    const auto place = std::ranges::lower_bound(stops, line, {}, &LineMark::Line);
    if (place != stops.end() && place->Line == line)
        stops.erase(place);
    else
        stops.insert(place, {.Line = line, .Message = {}});
    code.SetStops(std::move(stops));
    fresh = false;
}

void CodeStops::AskForCondition(int line)
{
    std::vector<LineMark> stops = code.Stops();
    auto place = std::ranges::lower_bound(stops, line, {}, &LineMark::Line);
    const bool stands = place != stops.end() && place->Line == line;
    const auto condition = AskText(InputQuestion{
        .Title = QStringLiteral("Breakpoint"),
        .Prompt =
            QStringLiteral("Stop in front of line %1 only if, written as behind \"if\" (nothing: always):").arg(line),
        .Preset = stands ? place->Message : QString()});
    if (!condition)
        return;
    if (!stands)
        place = stops.insert(place, {.Line = line, .Message = {}});
    place->Message = condition->trimmed();
    code.SetStops(std::move(stops));
    fresh = false;
}

void CodeStops::Clear()
{
    code.SetStops({});
    fresh = false;
}

void CodeStops::Begin(Way wanted, int line)
{
    way = wanted;
    target = line;
    depth = 0;
    fresh = false;
}

bool CodeStops::WayStops(const RunState& run) const
{
    switch (way) {
    case Way::Step:
        return true;
    case Way::Over:
        return run.SubDepth <= depth;
    case Way::Out:
        return run.SubDepth < depth;
    case Way::ToLine:
        return run.CurrentLine == RunningLine(run, target);
    case Way::On:
        break;
    }
    return false;
}

bool CodeStops::MarkStops(RunState& run)
{
    if (!std::exchange(fresh, true)) {
        marked.clear();
        for (const LineMark& stop : code.Stops())
            marked.insert(RunningLine(run, stop.Line), stop.Message);
    }
    const auto stop = marked.constFind(run.CurrentLine);
    if (stop == marked.constEnd())
        return false;
    const ConditionAnswer answer = HoldsNow(run, *stop);
    fault = answer.Fault;
    return answer.Holds;
}

bool CodeStops::StopsBefore(RunState& run)
{
    fault.clear();
    const bool blank = IsBlankLine(run.Code.Lines[size_t(run.CurrentLine)].Written);
    return !blank && (MarkStops(run) || WayStops(run));
}

void CodeStops::Wait(RunState& run)
{
    QEventLoop ownLoop;
    waiting = &run;
    loop = &ownLoop;
    way = Way::On;
    run.Scope.OnStop = [&ownLoop] { ownLoop.quit(); };
    if (!run.Scope.Stopped())
        ownLoop.exec();
    run.Scope.OnStop = {};
    loop = nullptr;
    waiting = nullptr;
    depth = run.SubDepth;
    fresh = false;
    if (run.Scope.Stopped())
        run.RequestStop();
}

void CodeStops::Go(Way wanted)
{
    way = wanted;
    target = code.CaretLine();
    if (loop)
        loop->quit();
}
