#include "conf/document_hints.h"

#include "conf/check_for_errors.h"
#include "conf/element_record.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "frame/run_scope.h"
#include "platform/images/images.h"

#include <QRegularExpression>

namespace {

constexpr int LinesForKeys = 2000; // of a large text: how far above an equal key is looked for
constexpr int LinesAtOnce = 2000;  // of a search for the next mark
constexpr qsizetype SmallText = 4 << 20;

/// The part of a text that is looked at for hints, and where the lines to look at begin in it.
struct Part
{
    QByteArrayView Bytes;
    qsizetype Start = 0;
};

/// Of a large text only a piece is taken: a view of all of it costs as much as the text.
Part PartFor(const DocumentText& pane, int first, int last)
{
    const qsizetype start = pane.LineStart(first);
    if (pane.LineStart(pane.LineCount()) <= SmallText)
        return {pane.Bytes(), start};
    const int from = qMax(0, first - LinesForKeys);
    return {pane.Bytes(from, last), start - pane.LineStart(from)};
}

void TakeNames(HintContext& context)
{
    for (const MediaListModel* list : {&Lists().Rnd, &Lists().Extra, &Lists().Base}) // the nearest last: it counts
        for (int row = 0; row < list->rowCount(); ++row) {
            const QString name = list->Name(row);
            context.FileNames.insert(name);
            context.Spelling.insert(name.toLower(), name);
        }
}

/// The hints of the nearest marked line of lines first to last, from one of their ends; empty: no mark.
std::vector<LineHint> NearestMark(int first, int last, bool forward, RunScope& run)
{
    while (first <= last && run.Turn()) {
        const int from = forward ? first : qMax(first, last - LinesAtOnce + 1);
        const int to = forward ? qMin(last, first + LinesAtOnce - 1) : last;
        std::vector<LineHint> found = HintsOfDocument().InLines(from, to);
        std::erase_if(found, [=](const LineHint& hint) { return hint.Line < from || hint.Line > to; });
        if (!found.empty()) {
            const int line = forward ? found.front().Line : found.back().Line;
            std::erase_if(found, [=](const LineHint& hint) { return hint.Line != line; });
            return found;
        }
        (forward ? first : last) = forward ? to + 1 : from - 1;
    }
    return {};
}

/// Where the part `word` of the key begins; -1: nowhere.
int ColumnInKey(const QString& line, const QString& word)
{
    int column = 0;
    for (const QString& part : line.section(u':', 0, 0).split(u'.')) {
        if (part == word)
            return column;
        column += int(part.size()) + 1;
    }
    return -1;
}

/// Where `word` stands alone in the value; -1: nowhere.
int ColumnInValue(const QString& line, const QString& word)
{
    const QRegularExpression alone(QStringLiteral("(?<!\\w)%1(?!\\w)").arg(QRegularExpression::escape(word)),
                                   QRegularExpression::UseUnicodePropertiesOption);
    const qsizetype colon = line.indexOf(u':');
    return colon < 0 ? -1 : int(alone.match(line.section(u'#', 0, 0), colon + 1).capturedStart());
}

} // namespace

DocumentHints& HintsOfDocument()
{
    if (!Conf.Hints)
        Conf.Hints = std::make_shared<DocumentHints>();
    return *Conf.Hints;
}

const HintContext& DocumentHints::Context()
{
    if (!context || mode != Frame.CurrentMode) {
        mode = Frame.CurrentMode;
        context = std::make_unique<HintContext>();
        context->BareLines = mode == ModeEdi;
        context->Repeats = mode == ModeHla;
        context->Check = CurrentCheckContext();
        context->Values = context->Check.LookForImages;
        context->LevelNumbers = mode == ModeMus;
        context->SheetSize = [this](const QString& value) { return SizeOf(value); };
        if (context->Values || mode == ModeSfx || mode == ModeMus)
            TakeNames(*context);
        context->Words = MakeHintWords(Frame.WordLists.at(mode));
    }
    return *context;
}

/// Sheets are read behind the look that first meets them; Changed tells of it.
QSize DocumentHints::SizeOf(const QString& value)
{
    const auto known = sizes.constFind(value);
    if (known != sizes.constEnd())
        return *known;
    sizes.insert(value, {});
    const auto hit = FindImageInLists(value);
    if (!hit)
        return {};
    images::LoadLater(PathOf(hit->Source, hit->Name), this, [this, value](const Result<images::Picture>& picture) {
        if (!picture || !sizes.contains(value))
            return;
        sizes.insert(value, picture->Size());
        emit Changed();
    });
    return {};
}

std::vector<LineHint> DocumentHints::InLines(int first, int last)
{
    const DocumentText& pane = CurrentPane();
    first = qMax(0, first);
    last = qMin(last, pane.LineCount() - 1);
    if (!MayHaveMarks() || first > last)
        return {};
    const Part part = PartFor(pane, first, last);
    return HintsForLines(part.Bytes, part.Start, first, last, Context());
}

void DocumentHints::Forget()
{
    context.reset();
    sizes.clear();
}

bool MayHaveMarks()
{
    return Frame.CurrentMode != ModeTxt;
}

void GotoMark(bool forward)
{
    DocumentText& pane = CurrentPane();
    const int caret = pane.CaretLine(), last = pane.LineCount() - 1;
    RunScope run(RunKind::Pass, forward ? QStringLiteral("Next Mark") : QStringLiteral("Previous Mark"));
    std::vector<LineHint> marked =
        forward ? NearestMark(caret + 1, last, true, run) : NearestMark(0, caret - 1, false, run);
    const bool round = marked.empty();
    if (round)
        marked = forward ? NearestMark(0, caret, true, run) : NearestMark(caret, last, false, run);
    Panes().FocusPane();
    if (marked.empty())
        return ShowNotice(run.Stopped() ? run.Name() + QStringLiteral(" was stopped")
                                        : QStringLiteral("No line of this document has a mark"));
    pane.ExecuteCmd(CmdGotoLine, marked.front().Line);
    QStringList said;
    for (const LineHint& hint : marked)
        said << hint.Message;
    ShowNotice((round ? QStringLiteral("From the other end: ") : QString()) + said.join(u' '));
}

void PutNearestWordIn(const LineHint& hint)
{
    DocumentText& pane = CurrentPane();
    const QString line = pane.GetLine(hint.Line);
    const int column = hint.InValue ? ColumnInValue(line, hint.Wrong) : ColumnInKey(line, hint.Wrong);
    if (column < 0 || hint.Wrong.isEmpty())
        return ShowNotice(QStringLiteral("The word \"%1\" is no longer in that line").arg(hint.Wrong));
    pane.SetSel({hint.Line, column, hint.Line, column + int(hint.Wrong.size())}, true);
    pane.SetSelText(hint.Right);
}
