#include "macro/recorder.h"

#include "text/command_numbers.h"
#include "text/document_text.h"

#include <QHash>
#include <algorithm>

namespace {

constexpr qsizetype LongestEdit = 4000; ///< of an edit that is recorded by what it did

bool IsEmptyRange(const Range& range)
{
    return range.StartLine == range.EndLine && range.StartCol == range.EndCol;
}

qsizetype IndexOf(const QString& text, int line, int column)
{
    qsizetype at = 0;
    for (; line > 0; --line) {
        const qsizetype end = text.indexOf(u'\n', at);
        if (end < 0)
            return text.size();
        at = end + 1;
    }
    const qsizetype end = text.indexOf(u'\n', at);
    return qMin(at + column, end < 0 ? text.size() : end);
}

struct Stretch
{
    qsizetype Anchor, Caret;
    qsizetype Start() const { return qMin(Anchor, Caret); }
    qsizetype End() const { return qMax(Anchor, Caret); }
    bool operator==(const Stretch&) const = default;
};

Stretch SelectedIn(const TextMoment& moment)
{
    const Range& range = moment.Selection;
    return {IndexOf(moment.Text, range.StartLine, range.StartCol), IndexOf(moment.Text, range.EndLine, range.EndCol)};
}

/// Key presses from one place to another.
int StepsBetween(const QString& text, qsizetype from, qsizetype to)
{
    const QStringView between = QStringView(text).mid(qMin(from, to), qAbs(to - from));
    const auto low = std::ranges::count_if(between, [](QChar c) { return c.isLowSurrogate(); });
    return int(between.size() - low);
}

size_t Hash(const QString& text)
{
    return qHash(text, size_t(text.size()));
}

Range PlaceAt(const QString& text, qsizetype at)
{
    const QStringView before = QStringView(text).left(at);
    const int line = int(before.count(u'\n'));
    const int column = int(at - (before.lastIndexOf(u'\n') + 1));
    return {line, column, line, column};
}

bool IsVertical(int number)
{
    constexpr int Numbers[] = {CmdLineUp, CmdLineDown, CmdLineUpExtend, CmdLineDownExtend,
                               CmdPageUp, CmdPageDown, CmdPageUpExtend, CmdPageDownExtend};
    return std::ranges::find(Numbers, number) != std::end(Numbers);
}

bool IsSearch(int number)
{
    return number == CmdFindNext || number == CmdFindPrevious || number == CmdReplaceAll ||
           number == CmdReplaceAllInSelection;
}

/// Would the macro word for a vertical move end the run here?
bool MeetsTheEdge(int number, const TextMoment& before)
{
    const Range& range = before.Selection;
    const int line = qMin(range.StartLine, range.EndLine);
    if (number == CmdLineUp || number == CmdLineUpExtend)
        return line == 0;
    return (number == CmdLineDown || number == CmdLineDownExtend) && line == before.Text.count(u'\n');
}

/// The stretch of one text that another has something else for.
struct Difference
{
    qsizetype Start, EndBefore, EndAfter;
};

Difference Compare(const QString& before, const QString& after)
{
    const qsizetype shorter = qMin(before.size(), after.size());
    const auto apart = std::mismatch(before.begin(), before.begin() + shorter, after.begin());
    qsizetype start = apart.first - before.begin();
    qsizetype tail = 0;
    while (tail < shorter - start && before.at(before.size() - 1 - tail) == after.at(after.size() - 1 - tail))
        ++tail;
    if (start > 0 && before.at(start - 1).isHighSurrogate())
        --start;
    if (tail > 0 && before.at(before.size() - tail).isLowSurrogate())
        --tail;
    return {start, before.size() - tail, after.size() - tail};
}

} // namespace

TextMoment MomentOf(const DocumentText& text)
{
    return {text.Text().replace(QLatin1StringView("\r\n"), QLatin1StringView("\n")), text.GetSel(false)};
}

void MacroRecorder::Add(RecordedStep step)
{
    steps.push_back(std::move(step));
}

void MacroRecorder::AddCommand(int number, int count)
{
    RecordedStep step;
    step.Kind = RecordedStep::Command;
    step.Number = number;
    step.Count = count;
    Add(std::move(step));
}

void MacroRecorder::Command(int number, const TextMoment& after, const QString& find, const QString& replace)
{
    const bool clipboard = number == CmdCopy || number == CmdCutLine; // of an empty line too
    const bool changed = after.Text != now.Text || after.Selection != now.Selection;
    // One that only ends a walk through lines counts: the next walk aims at another column.
    const bool endsWalk = !steps.empty() && IsVertical(steps.back().Number) && !IsVertical(number);
    if (!changed && !clipboard && !(endsWalk && HasMacroWord(number) && !IsSearch(number)))
        return;
    const size_t first = steps.size();
    const size_t before = Hash(now.Text);
    const Range selectedBefore = now.Selection;
    if (number == CmdUndo && TakeBack(after))
        return;
    if (number == CmdFindNext || number == CmdFindPrevious) {
        AddSearch(number, after, find);
    } else if (number == CmdReplaceAll || number == CmdReplaceAllInSelection) {
        RecordedStep step;
        step.Kind = RecordedStep::Search;
        step.Number = number;
        step.Text = find;
        step.Other = replace;
        Add(std::move(step));
    } else if (number == CmdGotoLine) {
        RecordedStep step;
        step.Kind = RecordedStep::Command;
        step.Number = number;
        step.Count = after.Selection.EndLine;
        Add(std::move(step));
    } else if (HasMacroWord(number) && !MeetsTheEdge(number, now)) {
        AddCommand(number);
    } else {
        Changed(after);
        return;
    }
    if (steps.size() > first) {
        steps.at(first).TextBefore = before;
        steps.at(first).SelectionBefore = selectedBefore;
    }
    now = after;
}

void MacroRecorder::AddSearch(int number, const TextMoment& after, const QString& find)
{
    // A replacement comes in front of the search that goes on behind it.
    if (after.Text != now.Text) {
        const Stretch selected = SelectedIn(now);
        const qsizetype end = selected.End() + after.Text.size() - now.Text.size();
        const TextMoment between{after.Text, PlaceAt(after.Text, end)};
        if (!AddTyped(between))
            AddEffect(between);
        now = between;
        if (after.Selection == now.Selection)
            return;
    }
    const Stretch from = SelectedIn(now), to = SelectedIn(after);
    if (number == CmdFindNext && to.Start() < from.End())
        AddCommand(CmdDocumentStart);
    if (number == CmdFindPrevious && to.Start() >= from.Start())
        AddCommand(CmdDocumentEnd);
    RecordedStep step;
    step.Kind = RecordedStep::Search;
    step.Number = number;
    step.Text = find;
    Add(std::move(step));
}

void MacroRecorder::Changed(const TextMoment& after)
{
    if (after.Text == now.Text && after.Selection == now.Selection)
        return;
    const size_t first = steps.size();
    const size_t before = Hash(now.Text);
    if (after.Text == now.Text) {
        RecordedStep step;
        step.Kind = RecordedStep::Place;
        step.At = after.Selection;
        const Stretch selected = SelectedIn(after);
        step.Steps = StepsBetween(after.Text, selected.Anchor, selected.Caret);
        Add(std::move(step));
    } else if (!AddTyped(after)) {
        AddEffect(after);
    }
    if (steps.size() > first) {
        steps.at(first).TextBefore = before;
        steps.at(first).SelectionBefore = now.Selection;
    }
    now = after;
}

/// What was selected gave way to a text with the caret behind it. False: something else happened.
bool MacroRecorder::AddTyped(const TextMoment& after)
{
    if (now.Selection.ColumnSel || !IsEmptyRange(after.Selection))
        return false;
    const Stretch selected = SelectedIn(now);
    const qsizetype caret = SelectedIn(after).Caret, rest = now.Text.size() - selected.End();
    if (caret < selected.Start() || after.Text.size() - caret != rest || caret - selected.Start() > LongestEdit ||
        QStringView(after.Text).left(selected.Start()) != QStringView(now.Text).left(selected.Start()) ||
        QStringView(after.Text).right(rest) != QStringView(now.Text).right(rest))
        return false;
    if (caret == selected.Start()) {
        AddCommand(CmdDeleteRight);
        return true;
    }
    RecordedStep step;
    step.Kind = RecordedStep::Type;
    step.Text = after.Text.mid(selected.Start(), caret - selected.Start());
    step.TakesSelection = selected.Start() != selected.End();
    Add(std::move(step));
    return true;
}

/// Any edit, by what is different afterwards: select what went, write what came, put the caret where it is.
void MacroRecorder::AddEffect(const TextMoment& after)
{
    const Difference apart = Compare(now.Text, after.Text);
    if (apart.EndAfter - apart.Start > LongestEdit) {
        CannotReplay(QStringLiteral("A long edit"), after);
        return;
    }
    MoveOn(now, apart.Start);
    if (const int gone = StepsBetween(now.Text, apart.Start, apart.EndBefore)) {
        AddCommand(CmdCharRightExtend, gone);
        if (apart.EndAfter == apart.Start)
            AddCommand(CmdDeleteRight);
    }
    if (apart.EndAfter > apart.Start) {
        RecordedStep step;
        step.Kind = RecordedStep::Type;
        step.Text = after.Text.mid(apart.Start, apart.EndAfter - apart.Start);
        step.TakesSelection = apart.EndBefore > apart.Start;
        Add(std::move(step));
    }
    const Stretch to = SelectedIn(after);
    const TextMoment written{after.Text, PlaceAt(after.Text, apart.EndAfter)};
    MoveOn(written, to.Anchor);
    if (const int selected = StepsBetween(after.Text, to.Anchor, to.Caret))
        AddCommand(to.Caret > to.Anchor ? CmdCharRightExtend : CmdCharLeftExtend, selected);
}

/// The caret to a place: by steps in its own line, so that the macro serves other lines too.
void MacroRecorder::MoveOn(const TextMoment& from, qsizetype to)
{
    const Stretch selected = SelectedIn(from);
    const Range place = PlaceAt(from.Text, to);
    if (from.Selection.ColumnSel || place.StartLine != from.Selection.EndLine) {
        RecordedStep step;
        step.Kind = RecordedStep::Place;
        step.At = place;
        Add(std::move(step));
        return;
    }
    if (selected.Start() != selected.End())
        AddCommand(CmdClearSelection);
    if (const int count = StepsBetween(from.Text, selected.Caret, to))
        AddCommand(to > selected.Caret ? CmdCharRight : CmdCharLeft, count);
}

/// Undo back to a text that stood here before: the steps since then go. Not if they filled the clipboard, which undo
/// does not empty.
bool MacroRecorder::TakeBack(const TextMoment& after)
{
    const size_t wanted = Hash(after.Text);
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        const bool fillsClipboard =
            step->Kind == RecordedStep::Command && (step->Number == CmdCopy || step->Number == CmdCut ||
                                                    step->Number == CmdCutAppend || step->Number == CmdCutLine);
        if (fillsClipboard)
            return false;
        if (step->TextBefore != wanted)
            continue;
        now = {after.Text, step->SelectionBefore};
        steps.erase(std::prev(step.base()), steps.end());
        Changed(after);
        return true;
    }
    return false;
}

void MacroRecorder::CannotReplay(const QString& name, const TextMoment& after)
{
    RecordedStep step;
    step.Text = name;
    step.TextBefore = Hash(now.Text);
    step.SelectionBefore = now.Selection;
    Add(std::move(step));
    now = after;
}

QString MacroRecorder::Source() const
{
    QStringList notes;
    return RecordedSource(steps, notes);
}

QStringList MacroRecorder::NotReplayed() const
{
    QStringList notes;
    RecordedSource(steps, notes);
    return notes;
}
