#pragma once

#include "text/text_form.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <vector>

/// The lines of a text, of which most are never touched: those stay the bytes they came as. Lines that are changed are
/// kept apart. A line more or less costs what lies between it and the last such change.
class LineStore
{
public:
    enum class End : quint8 { None, CrLf, Lf, Cr };

    LineStore() { Load({}); }

    void Load(const QByteArray& utf8);
    int Count() const { return int(front.size() + back.size()); } ///< at least 1

    /// Without its end. The text is valid until another line is asked for or one is changed.
    const QString& Text(int line) const;
    qsizetype Units(int line) const; ///< length in UTF-16 units
    End EndOf(int line) const { return At(line).Break; }
    void SetEnd(int line, End end) { At(line).Break = end; } ///< of a line that was changed

    /// Bytes of whole lines, their ends included but the last one's if `lastEnd` is off. Where lines lie side by side
    /// as they came they are shown, else put together in `scratch`.
    QByteArrayView Bytes(int first, int last, bool lastEnd, QByteArray& scratch) const;

    /// Puts a text without line ends in the place of `count` characters of a line.
    void Change(int line, qsizetype from, qsizetype count, QStringView wanted);
    /// New lines behind one, which gets `end`; the last of them takes over the end that it had.
    void InsertBehind(int line, const QList<QString>& added, End end);
    /// Puts lines in the place of first..last. All but the last get `end`, the last keeps that of the old last line.
    void Replace(int first, int last, const QList<QString>& lines, End end);

private:
    struct Line
    {
        quint32 Start = 0, Size = 0; ///< in the bytes that were loaded
        qint32 Own = -1;             ///< place of a changed line's text; -1: untouched
        End Break = End::None;
    };

    const Line& At(int line) const
    {
        const auto index = size_t(line);
        return index < front.size() ? front[index] : back[back.size() - 1 - (index - front.size())];
    }
    Line& At(int line) { return const_cast<Line&>(std::as_const(*this).At(line)); }
    QByteArrayView Untouched(const Line& line) const { return QByteArrayView(loaded).sliced(line.Start, line.Size); }
    void MoveGap(size_t before);
    qint32 Keep(const QString& text);
    void Drop(const Line& line);
    bool SideBySide(int first, int last) const;

    QByteArray loaded;
    std::vector<Line> front, back; ///< lines in front of the gap, and behind it from the last on
    std::vector<QString> own;
    std::vector<qint32> freed; ///< places of `own` that can be taken again
    mutable QString shown;     ///< of the untouched line that was asked for last
    mutable qint64 shownStart = -1;
};

/// The line end that stands at a place.
LineStore::End EndAt(QByteArrayView bytes, qsizetype at);

/// Bytes of a line's end.
QByteArrayView BytesOf(LineStore::End end);
LineStore::End EndFor(LineBreak lineBreak);
