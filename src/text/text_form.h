#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

enum class LineBreak { CrLf, Lf, Cr };

/// Line ends and columns of UTF-8 bytes. A line end is CR LF, LF or CR; columns count UTF-16 units.

QByteArrayView BytesOf(LineBreak lineEnd);

/// Where the first line end at or behind `from` begins; the text's size if there is none.
qsizetype FindBreak(QByteArrayView bytes, qsizetype from);

/// The line end that most lines of a text have; `otherwise` for a text of one line.
LineBreak DominantBreak(QByteArrayView bytes, LineBreak otherwise);

/// The text with every line end made `lineEnd`.
QByteArray WithBreaks(QByteArrayView bytes, LineBreak lineEnd);

/// What callers see: every line end CR LF.
QString ToText(QByteArrayView bytes);
QByteArray FromText(QStringView text, LineBreak lineEnd);

/// UTF-16 units; a line end counts 2 whatever it is.
qsizetype UnitsOf(QByteArrayView bytes);

/// Offset of a column in a line, clamped to the line.
qsizetype OffsetOfColumn(QByteArrayView line, qsizetype column);

/// Bytes that begin no character.
inline bool IsContinuation(char byte)
{
    return (uchar(byte) & 0xC0) == 0x80;
}

/// Letters, digits, "_" and every code from 128.
inline bool IsWordByte(char byte)
{
    const uchar code = uchar(byte);
    return code >= 0x80 || code == '_' || (code >= '0' && code <= '9') ||
           ((code | 0x20) >= 'a' && (code | 0x20) <= 'z');
}
