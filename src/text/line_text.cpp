#include "text/line_text.h"

#include "platform/files/paths.h"

#include <algorithm>

namespace {

bool IsLowHalf(const QString& line, qsizetype column)
{
    return column > 0 && column < line.size() && line[column].isLowSurrogate();
}

/// Where the first line end of any kind stands; the text's size if there is none.
qsizetype FirstBreak(QStringView text)
{
    qsizetype at = 0;
    while (at < text.size() && text[at] != u'\n' && text[at] != u'\r')
        ++at;
    return at;
}

qsizetype BreakSize(QStringView text, qsizetype at)
{
    return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n' ? 2 : 1;
}

/// Pieces of a text between its line ends.
QList<QString> PiecesOf(QStringView text)
{
    QList<QString> pieces;
    for (qsizetype at = FirstBreak(text); at < text.size(); at = FirstBreak(text)) {
        pieces.append(text.first(at).toString());
        text = text.sliced(at + BreakSize(text, at));
    }
    pieces.append(text.toString());
    return pieces;
}

bool HasBreak(QStringView text)
{
    return FirstBreak(text) < text.size();
}

} // namespace

QString LineText::Text() const
{
    return ToText(Bytes());
}

QByteArrayView LineText::Bytes() const
{
    return lines.Bytes(0, LastLine(), true, whole);
}

QByteArrayView LineText::Bytes(int first, int last) const
{
    if (!IsLine(first) || last < first)
        return {};
    return lines.Bytes(first, qMin(last, LastLine()), true, whole);
}

qsizetype LineText::LineStart(int line) const
{
    if (line <= 0)
        return 0;
    return Bytes(0, qMin(line, lines.Count()) - 1).size();
}

QString LineText::GetLine(int line) const
{
    return IsLine(line) ? lines.Text(line) : QString();
}

int LineText::GetLineLength(int line) const
{
    return IsLine(line) ? int(lines.Units(line)) : 0;
}

LineText::Place LineText::Clamped(int line, int column) const
{
    if (line < 0)
        return {};
    if (!IsLine(line))
        return EndPlace();
    if (column <= 0)
        return {line, 0};
    const QString& text = lines.Text(line);
    const auto clamped = qMin<qsizetype>(column, text.size());
    return {line, int(clamped - IsLowHalf(text, clamped))};
}

QString LineText::TextOf(const Stretch& stretch, QLatin1StringView lineBreak) const
{
    const auto [start, end] = stretch;
    if (start.Line == end.Line)
        return lines.Text(start.Line).mid(start.Column, end.Column - start.Column);
    QString text = lines.Text(start.Line).sliced(start.Column);
    for (int line = start.Line + 1; line < end.Line; ++line)
        text += lineBreak + lines.Text(line);
    return text + lineBreak + lines.Text(end.Line).first(end.Column);
}

void LineText::Touched(int first, int last)
{
    sameFront = changed ? qMin(sameFront, first) : first;
    sameBack = changed ? qMin(sameBack, LastLine() - last) : LastLine() - last;
    changed = modified = true;
    blank = false;
    ++edits;
}

void LineText::CopyFrom(const DocumentText& other)
{
    LoadWhole(other.Bytes().toByteArray());
    changed = false;
    encoding = other.Encoding();
    lineEnd = other.LineEnd();
    blank = other.LineCount() == 0;
    modified = other.Modified();
    findText = other.FindText();
    replaceText = other.ReplaceText();
    findOptions = other.CurrentFindOptions();
    SetSel(other.GetSel(false), false);
    told = {edits, anchor, caret, modified};
}

void LineText::WriteChangesTo(DocumentText& other)
{
    const EditBatch batch(other);
    if (changed && blank)
        other.SetText({});
    if (!blank && other.LineCount() == 0)
        other.AddText({}); // no longer blank
    if (changed && !blank) {
        QByteArray joined;
        const QByteArrayView bytes = lines.Bytes(sameFront, LastLine() - sameBack, false, joined);
        other.ReplaceLines(sameFront, other.LineCount() - 1 - sameBack, bytes);
    }
    changed = false;
    other.SetEncoding(encoding);
    if (other.LineEnd() != lineEnd)
        other.SetLineEnd(lineEnd);
    if (other.FindText() != findText)
        other.SetFindText(findText);
    if (other.ReplaceText() != replaceText)
        other.SetReplaceText(replaceText);
    if (const Range selection = GetSel(false); other.GetSel(false) != selection)
        other.SetSel(selection, false);
    if (other.Modified() && !modified)
        other.SetModified(false);
}

LineText::Place LineText::EditInLine(const Stretch& stretch, QStringView wanted)
{
    const int line = stretch.Start.Line, from = stretch.Start.Column, count = stretch.End.Column - from;
    if (count != wanted.size() || QStringView(lines.Text(line)).sliced(from, count) != wanted) {
        Touched(line, line);
        lines.Change(line, from, count, wanted);
    }
    blank = false;
    return {line, from + int(wanted.size())};
}

/// Puts a text of several lines into one.
LineText::Place LineText::BreakLineAt(const Stretch& stretch, QStringView wanted)
{
    const int line = stretch.Start.Line, from = stretch.Start.Column;
    const qsizetype first = FirstBreak(wanted);
    QList<QString> added = PiecesOf(wanted.sliced(first + BreakSize(wanted, first)));
    const Place behind{line + int(added.size()), int(added.last().size())};
    const QString& old = lines.Text(line);
    const qsizetype rest = old.size() - from;
    if (stretch.End.Column < old.size())
        added.last() += QStringView(old).sliced(stretch.End.Column);
    Touched(line, line);
    lines.Change(line, from, rest, wanted.first(first));
    lines.InsertBehind(line, added, EndFor(lineEnd));
    return behind;
}

LineText::Place LineText::EditLines(const Stretch& stretch, QStringView wanted)
{
    const auto [start, end] = stretch;
    if (start.Line == end.Line)
        return BreakLineAt(stretch, wanted);
    QList<QString> pieces = PiecesOf(wanted);
    const Place behind{start.Line + int(pieces.size()) - 1,
                       int(pieces.last().size()) + (pieces.size() == 1 ? start.Column : 0)};
    pieces.last() += QStringView(lines.Text(end.Line)).sliced(end.Column);
    pieces.first().prepend(QStringView(lines.Text(start.Line)).first(start.Column));
    Touched(start.Line, end.Line);
    lines.Replace(start.Line, end.Line, pieces, EndFor(lineEnd));
    return behind;
}

LineText::Place LineText::Edit(const Stretch& stretch, QStringView wanted)
{
    if (stretch.Start == stretch.End && wanted.isEmpty()) {
        blank = false;
        return stretch.End;
    }
    const bool inLine = stretch.Start.Line == stretch.End.Line && !HasBreak(wanted);
    return inLine ? EditInLine(stretch, wanted) : EditLines(stretch, wanted);
}

/// What stands behind an edit moves with its text, what stands in it goes to its front.
void LineText::ShiftSelection(const Stretch& stretch, Place end)
{
    for (Place* place : {&anchor, &caret}) {
        if (*place <= stretch.Start)
            continue;
        if (*place < stretch.End) {
            *place = stretch.Start;
            continue;
        }
        if (place->Line == stretch.End.Line)
            place->Column += end.Column - stretch.End.Column;
        place->Line += end.Line - stretch.End.Line;
    }
}

void LineText::LoadWhole(const QByteArray& utf8)
{
    lines.Load(utf8);
    anchor = caret = {};
    columns = emptied = false;
    goal = -1;
    changed = true;
    sameFront = sameBack = 0;
    ++edits;
}

void LineText::SetText(const QString& wanted)
{
    LoadWhole(FromText(wanted, lineEnd));
    blank = wanted.isEmpty();
    modified = true;
    Told();
}

void LineText::ReplaceLines(int first, int last, QByteArrayView bytes)
{
    if (!IsLine(first) || last < first)
        return;
    last = qMin(last, LastLine());
    const Stretch stretch{{first, 0}, {last, int(lines.Units(last))}};
    ShiftSelection(stretch, Edit(stretch, QString::fromUtf8(bytes)));
    // Where the document's line ends are mixed, each new line keeps the one that it came with.
    for (qsizetype at = FindBreak(bytes, 0); at < bytes.size(); ++first) {
        const LineStore::End end = EndAt(bytes, at);
        if (lines.EndOf(first) != end)
            lines.SetEnd(first, end);
        at = FindBreak(bytes, at + BytesOf(end).size());
    }
    Told();
}

void LineText::InsertText(const QString& wanted, const Range& at)
{
    const Place place = Clamped(at.StartLine, at.StartCol);
    ShiftSelection({place, place}, Edit({place, place}, wanted));
    Told();
}

void LineText::AddText(const QString& wanted)
{
    const Place end = EndPlace();
    Edit({end, end}, wanted);
    Told();
}

void LineText::InsertLine(int line, const QString& wanted)
{
    if (line < 0)
        return;
    if (blank)
        AddText(wanted);
    else if (IsLine(line))
        InsertText(wanted + u'\n', {line, 0, line, 0});
    else
        AddText(u'\n' + wanted);
}

void LineText::DeleteLine(int line)
{
    if (!IsLine(line))
        return;
    Stretch stretch{{line, 0}, {line + 1, 0}};
    if (line == LastLine())
        stretch = {line > 0 ? Place{line - 1, GetLineLength(line - 1)} : Place{}, EndPlace()};
    ShiftSelection(stretch, Edit(stretch, {}));
    Told();
}

Result<> LineText::OpenFile(const QString& path)
{
    return paths::ReadWhole(path, paths::LargestDocument).map([this](const QByteArray& file) { LoadBytes(file); });
}

Result<> LineText::SaveFile(const QString& path, bool, const std::function<Result<>()>& before)
{
    if (!FitsEncoding())
        return Fail(path, QStringLiteral("The text has characters that Windows-1252 cannot hold."));
    return paths::WriteWhole(path, FileBytes(), before).map([this] { SetModified(false); });
}

Result<> LineText::InsertFile(const QString& path, const Range& at)
{
    return paths::ReadWhole(path, paths::LargestDocument).map([&](const QByteArray& file) {
        InsertText(QString::fromUtf8(FromFile(file, EncodingOf(file))), at);
    });
}

void LineText::LoadBytes(const QByteArray& bytes)
{
    encoding = EncodingOf(bytes);
    LoadWhole(encoding == FileEncoding::Utf8 ? bytes : FromFile(bytes, encoding));
    lineEnd = DominantBreak(Bytes(), LineBreak::CrLf);
    blank = bytes.isEmpty();
    modified = false;
    Told();
}

QByteArray LineText::FileBytes() const
{
    const QByteArrayView bytes = Bytes();
    return ToFile(bytes, encoding).value_or(bytes.toByteArray());
}

bool LineText::FitsEncoding() const
{
    return encoding != FileEncoding::Windows1252 || ToFile(Bytes(), encoding).has_value();
}

void LineText::SetModified(bool wanted)
{
    modified = wanted;
    Told();
}

void LineText::EndBatch()
{
    --batches;
    Told();
}

void LineText::Told()
{
    if (batches > 0)
        return;
    // An edit may have changed what the selection says, wherever it was.
    const bool edited = std::exchange(told.Edits, edits) != edits;
    const bool moved = told.Anchor != anchor || told.Caret != caret;
    told.Anchor = anchor;
    told.Caret = caret;
    if (edited)
        emit TextChanged();
    if (std::exchange(told.Modified, modified) != modified)
        emit ModifiedChanged(modified);
    if (edited || moved)
        emit SelectionChanged();
}
