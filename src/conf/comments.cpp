#include "conf/comments.h"

#include "conf/element_blocks.h"

#include "frame/frame_state.h"
#include "frame/host_ports.h"

#include <algorithm>
#include <array>

namespace {

/// A run of code characters: grid index of its first, its first and last character.
struct IconRun
{
    int Index;
    char16_t First, Last;
};
constexpr std::array<IconRun, 3> IconRuns = {{{1, u'0', u'9'}, {11, u'a', u'z'}, {37, u'A', u'Z'}}};

constexpr int ExtraWidth = 15;

} // namespace

SeparatorMarks CurrentMarks()
{
    const SettingsRecord& settings = Frame.Settings;
    return {settings.LineCommentSearchChar, settings.LineCommentLineChar, settings.SpacerWidth};
}

QString IconCode(int gridIndex)
{
    for (const IconRun& run : IconRuns)
        if (gridIndex >= run.Index && gridIndex <= run.Index + (run.Last - run.First))
            return QString(QChar(char16_t(run.First + gridIndex - run.Index)));
    return {};
}

int ImageOfSeparator(QStringView line)
{
    const char16_t last = line.isEmpty() ? u' ' : line.back().unicode();
    for (const IconRun& run : IconRuns)
        if (last >= run.First && last <= run.Last)
            return last - run.First + run.Index + 1;
    return 1;
}

QString SeparatorLine(const QString& title, const QString& code, const SeparatorMarks& marks)
{
    const int width = marks.SpacerWidth + ExtraWidth;
    const QString padded = QLatin1Char(' ') + title + QLatin1Char(' ');
    if (padded.size() >= width - 1)
        return marks.Marker() + padded + code;
    QString line = QLatin1Char('#') + marks.SearchChar;
    line += marks.LineChar.repeated(qMax<qsizetype>(0, width + 1 - line.size()));
    const qsizetype at = width / 2 - padded.size() / 2 + 2 - 1;
    return line.replace(at, padded.size(), padded).left(width + 1) + code;
}

void InsertCommentSeparator(DocumentText& pane, const QString& title, const QString& code)
{
    if (title.isEmpty())
        return;
    const UndoGroup group(pane);
    const int line = pane.GetSel(true).StartLine;
    pane.InsertLine(line, SeparatorLine(title, code, CurrentMarks()));
    // From the new line one down: the caret ends on the line it came from.
    pane.SetSel({.StartLine = line, .EndLine = line}, true);
    pane.ExecuteCmd(CmdLineDown);
}

std::vector<SeparatorNode> FindSeparators(QByteArrayView lines, const SeparatorMarks& marks, bool sorted)
{
    const QByteArray marker = marks.Marker().toUtf8();
    std::vector<SeparatorNode> nodes;
    ForEachLine(lines, {}, [&](const ByteLine& line) {
        if (!line.Text.startsWith(marker))
            return;
        const QString text = QString::fromUtf8(line.Text);
        QString title = text.chopped(1);
        for (const QString& mark : {QStringLiteral("#"), marks.SearchChar, marks.LineChar})
            title.remove(mark);
        nodes.push_back({title.trimmed(), text, ImageOfSeparator(text)});
    });
    if (sorted)
        std::stable_sort(nodes.begin(), nodes.end(), [](const SeparatorNode& a, const SeparatorNode& b) {
            return QString::compare(a.Text, b.Text, Qt::CaseInsensitive) < 0;
        });
    return nodes;
}

int LineOfSeparator(QByteArrayView lines, const QString& separator)
{
    const QByteArray wanted = separator.toUtf8();
    int found = -1;
    int number = 0;
    ForEachLine(lines, {}, [&](const ByteLine& line) {
        if (found < 0 && line.Text == wanted)
            found = number;
        ++number;
    });
    return found;
}

QByteArray CommentLines(QByteArrayView lines, const PassProgress& progress)
{
    QByteArray out;
    out.reserve(lines.size() + lines.size() / 16);
    ForEachLine(lines, progress, [&](const ByteLine& line) {
        out.append('#');
        out.append(line.Text);
        out.append(line.Break);
    });
    return out;
}

QByteArray UncommentLines(QByteArrayView lines, const PassProgress& progress)
{
    QByteArray out;
    out.reserve(lines.size());
    ForEachLine(lines, progress, [&](const ByteLine& line) {
        out.append(line.Text.startsWith('#') ? line.Text.sliced(1) : line.Text);
        out.append(line.Break);
    });
    return out;
}

QByteArray ToggleLines(QByteArrayView lines, const PassProgress& progress)
{
    const auto isBlank = [](QByteArrayView line) { return line.trimmed().isEmpty(); };
    bool all = true, some = false;
    ForEachLine(lines, {}, [&](const ByteLine& line) {
        some |= !isBlank(line.Text);
        all &= isBlank(line.Text) || line.Text.startsWith('#');
    });
    const bool uncomment = all && some;
    QByteArray out;
    out.reserve(lines.size() + lines.size() / 16);
    ForEachLine(lines, progress, [&](const ByteLine& line) {
        if (!uncomment && !isBlank(line.Text))
            out.append('#');
        out.append(uncomment && line.Text.startsWith('#') ? line.Text.sliced(1) : line.Text);
        out.append(line.Break);
    });
    return out;
}

void CommentSelected()
{
    RunPassOnSelection(CurrentPane(), QStringLiteral("Comment Selected"), CommentLines);
}

void UncommentSelected()
{
    RunPassOnSelection(CurrentPane(), QStringLiteral("Uncomment Selected"), UncommentLines);
}

void ToggleComment()
{
    DocumentText& pane = CurrentPane();
    const Range before = pane.GetSel(true);
    Range lines = before;
    if (pane.SelLength() == 0)
        if (const std::optional<LineSpan> block = BlockAtCaret(pane))
            lines = {.StartLine = block->First, .EndLine = block->Last};
    if (lines.EndLine > lines.StartLine && lines.EndCol == 0 && pane.SelLength() > 0)
        --lines.EndLine; // a selection that ends in front of a line has nothing of it
    pane.SetSel({lines.StartLine, 0, lines.EndLine, pane.GetLineLength(lines.EndLine)}, false);
    RunPassOnSelection(pane, QStringLiteral("Toggle Comment"), ToggleLines);
    const auto held = [&](int line, int column) { return qMin(column, pane.GetLineLength(line)); };
    pane.SetSel({before.StartLine, held(before.StartLine, before.StartCol), before.EndLine,
                 held(before.EndLine, before.EndCol)},
                true);
}

void SelectBetweenComments()
{
    DocumentText& pane = CurrentPane();
    const QString marker = CurrentMarks().Marker();
    int upper = pane.GetSel(true).StartLine;
    while (upper > 0 && !pane.GetLine(upper).startsWith(marker))
        --upper;
    const int count = pane.LineCount();
    int lower = upper + 1;
    while (lower < count && !pane.GetLine(lower).startsWith(marker))
        ++lower;
    Range between{.StartLine = upper, .EndLine = lower};
    if (lower >= count) {
        between.EndLine = qMax(0, count - 1);
        between.EndCol = pane.GetLineLength(between.EndLine);
    }
    pane.SetSel(between, true);
    Panes().FocusPane();
}

void GotoComment(bool forward)
{
    DocumentText& pane = CurrentPane();
    if (pane.FindPlain(CurrentMarks().Marker(), forward)) {
        pane.ExecuteCmd(CmdLineStart);
        pane.ExecuteCmd(CmdCharRight);
    } else {
        ShowNotice(forward ? QStringLiteral("No comment separator further down")
                           : QStringLiteral("No comment separator further up"));
    }
    Panes().FocusPane();
}
