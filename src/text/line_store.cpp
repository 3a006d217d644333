#include "text/line_store.h"

#include <algorithm>
#include <utility>

LineStore::End EndAt(QByteArrayView bytes, qsizetype at)
{
    if (bytes[at] == '\n')
        return LineStore::End::Lf;
    const bool both = at + 1 < bytes.size() && bytes[at + 1] == '\n';
    return both ? LineStore::End::CrLf : LineStore::End::Cr;
}

QByteArrayView BytesOf(LineStore::End end)
{
    switch (end) {
    case LineStore::End::None:
        return {};
    case LineStore::End::CrLf:
        return "\r\n";
    case LineStore::End::Lf:
        return "\n";
    case LineStore::End::Cr:
        return "\r";
    }
    return {};
}

LineStore::End EndFor(LineBreak lineBreak)
{
    switch (lineBreak) {
    case LineBreak::Lf:
        return LineStore::End::Lf;
    case LineBreak::Cr:
        return LineStore::End::Cr;
    case LineBreak::CrLf:
        break;
    }
    return LineStore::End::CrLf;
}

void LineStore::Load(const QByteArray& utf8)
{
    loaded = utf8;
    front.clear();
    back.clear();
    own.clear();
    freed.clear();
    shownStart = -1;
    qsizetype from = 0;
    for (qsizetype at = FindBreak(loaded, 0); at < loaded.size(); at = FindBreak(loaded, from)) {
        const End end = EndAt(loaded, at);
        front.push_back({quint32(from), quint32(at - from), -1, end});
        from = at + BytesOf(end).size();
    }
    front.push_back({quint32(from), quint32(loaded.size() - from), -1, End::None});
}

const QString& LineStore::Text(int line) const
{
    const Line& found = At(line);
    if (found.Own >= 0)
        return own[size_t(found.Own)];
    if (shownStart != found.Start) {
        shown = QString::fromUtf8(Untouched(found));
        shownStart = found.Start;
    }
    return shown;
}

qsizetype LineStore::Units(int line) const
{
    const Line& found = At(line);
    return found.Own >= 0 ? own[size_t(found.Own)].size() : UnitsOf(Untouched(found));
}

bool LineStore::SideBySide(int first, int last) const
{
    for (int i = first; i <= last; ++i) {
        const Line& line = At(i);
        const bool next = i == last || line.Start + line.Size + quint32(BytesOf(line.Break).size()) == At(i + 1).Start;
        if (line.Own >= 0 || !next)
            return false;
    }
    return true;
}

QByteArrayView LineStore::Bytes(int first, int last, bool lastEnd, QByteArray& scratch) const
{
    if (SideBySide(first, last)) {
        const Line& end = At(last);
        const qsizetype start = At(first).Start;
        const qsizetype size = end.Start + end.Size - start + (lastEnd ? BytesOf(end.Break).size() : 0);
        return QByteArrayView(loaded).sliced(start, size);
    }
    scratch.resize(0);
    for (int i = first; i <= last; ++i) {
        const Line& line = At(i);
        if (line.Own >= 0)
            scratch += own[size_t(line.Own)].toUtf8();
        else
            scratch += Untouched(line);
        if (i < last || lastEnd)
            scratch += BytesOf(line.Break);
    }
    return scratch;
}

void LineStore::Change(int line, qsizetype from, qsizetype count, QStringView wanted)
{
    if (At(line).Own < 0) {
        const QString text = Text(line);
        At(line).Own = Keep(text);
    }
    own[size_t(At(line).Own)].replace(from, count, wanted.constData(), wanted.size());
}

void LineStore::InsertBehind(int line, const QList<QString>& added, End end)
{
    MoveGap(size_t(line) + 1);
    const End lastEnd = std::exchange(front.back().Break, end);
    for (const QString& text : added)
        front.push_back({0, 0, Keep(text), end});
    front.back().Break = lastEnd;
}

void LineStore::Replace(int first, int last, const QList<QString>& lines, End end)
{
    MoveGap(size_t(last) + 1);
    const End lastEnd = front.back().Break;
    for (int i = first; i <= last; ++i)
        Drop(front[size_t(i)]);
    front.resize(size_t(first));
    for (const QString& text : lines)
        front.push_back({0, 0, Keep(text), end});
    front.back().Break = lastEnd;
}

/// To the place in front of a line.
void LineStore::MoveGap(size_t before)
{
    if (before < front.size()) {
        back.insert(back.end(), front.rbegin(), front.rbegin() + qsizetype(front.size() - before));
        front.resize(before);
    } else if (before > front.size()) {
        const size_t count = before - front.size();
        front.insert(front.end(), back.rbegin(), back.rbegin() + qsizetype(count));
        back.resize(back.size() - count);
    }
}

qint32 LineStore::Keep(const QString& text)
{
    if (freed.empty()) {
        own.push_back(text);
        return qint32(own.size() - 1);
    }
    const qint32 place = freed.back();
    freed.pop_back();
    own[size_t(place)] = text;
    return place;
}

void LineStore::Drop(const Line& line)
{
    if (line.Own < 0)
        return;
    own[size_t(line.Own)].clear();
    freed.push_back(line.Own);
}
