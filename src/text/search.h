#pragma once

#include "text/places.h"
#include "text/search_options.h"
#include "text/text_form.h"

#include <QRegularExpression>
#include <array>
#include <limits>
#include <optional>

/// Where a search text stands. Match holds the groups of a regular expression.
struct Hit
{
    Span At;
    QRegularExpressionMatch Match;
};

/// A text without some of its old parts.
struct Replaced
{
    QByteArray Bytes;
    int Count = 0;
    qsizetype End = 0; ///< they stand for what lies between the range's start and here
};

/// One search text with its options, made ready to run over the bytes of a document. Plain texts run over the bytes
/// themselves, regular expressions over one line at a time. Only ReplaceAll minds hits of no length.
class Search
{
public:
    Search(const QString& text, const FindOptions& options, LineBreak lineEnd);

    QString Error() const { return error; } ///< why it cannot run; empty if it can
    bool CanRun() const { return error.isEmpty() && (byLine || !needle.isEmpty()); }

    /// The first hit that begins at or behind range.Start and ends at or before range.End.
    std::optional<Hit> Next(QByteArrayView bytes, Span range) const;
    /// The last hit in the range.
    std::optional<Hit> Previous(QByteArrayView bytes, Span range) const;
    /// The hit that is exactly the range, if it is one.
    std::optional<Hit> Exactly(QByteArrayView bytes, Span range) const;

    /// What takes a hit's place: the text, in regular expressions with \1 or $1 for groups and \n, \t.
    QByteArray Replacement(const Hit& hit, const QString& text) const;
    /// The range's bytes with every hit replaced, up to `most` of them and the hit that stands across that place: a
    /// large text is taken piece by piece. What runs by lines takes the whole range.
    Replaced ReplaceAll(QByteArrayView bytes, Span range, const QString& text, qsizetype most = LargestPiece) const;

    bool RunsByLine() const { return byLine; }
    /// How many bytes behind a place may belong to a hit that begins in front of it.
    qsizetype Reach() const { return needle.size(); }

    static constexpr qsizetype LargestPiece = std::numeric_limits<qsizetype>::max();

private:
    void TakePlain(const QString& text);
    void TakeExpression(const QString& pattern, bool wholeWord, bool matchCase);
    qsizetype FindBytes(QByteArrayView bytes, qsizetype from) const;
    qsizetype FindFolded(QByteArrayView bytes, qsizetype from) const;
    bool StandsAlone(QByteArrayView bytes, Span at) const;
    std::optional<Hit> NextPlain(QByteArrayView bytes, Span range) const;
    std::optional<Hit> PreviousPlain(QByteArrayView bytes, Span range) const;
    std::optional<Hit> NextInLines(QByteArrayView bytes, Span range) const;
    std::optional<Hit> PreviousInLines(QByteArrayView bytes, Span range) const;
    template <class Visit>
    void EachInLine(QByteArrayView bytes, Span line, Span range, Visit visit) const;
    static void Put(Replaced& result, QByteArrayView bytes, qsizetype& kept, Span hit, QByteArrayView replacement);

    LineBreak lineEnd;
    bool byLine = false, expressionText = false, folded = false, wholeWord = false;
    QByteArray needle;
    std::array<qsizetype, 256> steps{};
    QRegularExpression expression;
    QString error;
};
