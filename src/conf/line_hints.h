#pragma once

#include "conf/check.h"
#include "frame/vocabulary.h"

#include <QHash>
#include <QSet>
#include <QSize>
#include <functional>
#include <vector>

/// What the margin says about lines while the user types. Beside the rules of the check these are things the game
/// passes over without a word: none of them makes a line wrong by itself.

enum class HintLevel { Faint, Error };

struct LineHint
{
    int Line = 0;
    HintLevel Level = HintLevel::Faint;
    QString Message;
    QString Wrong = {}, Right = {}; ///< a part of the key and the word that was probably meant; empty: nothing fits
    bool InValue = false;           ///< `Wrong` stands in the value

    bool operator==(const LineHint&) const = default;
};

/// The words of one mode, made once for many lines.
struct HintWords
{
    QStringList Elements, Parts; ///< first parts; further parts of a key
    QSet<QByteArray> ElementSet, PartSet;
    QSet<QByteArray> ParameterSet; ///< of the further parts those that say how it is shown or played
};
HintWords MakeHintWords(const std::array<QStringList, WordKindCount>& lists);

struct HintContext
{
    CheckContext Check;
    HintWords Words;
    bool Values = false;       ///< graphics mode: values and frames are looked at too
    bool LevelNumbers = false; ///< music mode: a key may end in the three digits of a level, a parameter behind them
    QSet<QString> FileNames;   ///< of all files in the lists, as they are spelled (graphics, sounds, music)
    QHash<QString, QString> Spelling; ///< of a name in lower case
    /// Size in pixels of the sheet that a value names; empty if it is not known (yet).
    std::function<QSize(const QString& value)> SheetSize;
    bool Repeats = false;   ///< help animations: a key stands for a frame, as often as it is shown
    bool BareLines = false; ///< editor mode: the game takes a line without a colon for a name
    /// Files above this size are searched for a second equal key near the line only.
    qsizetype WholeFileLimit = 4 << 20;
};

/// Longest line that the game reads, in bytes (release 4.4.2.1).
constexpr qsizetype LongestGameLine = 1023;

/// Hints for lines first to last of a text. `start` is where line `first` begins.
std::vector<LineHint> HintsForLines(QByteArrayView text, qsizetype start, int first, int last,
                                    const HintContext& context);

/// The known word that differs least from `word`, at most two typing slips away; empty if none is near.
QString NearestWord(const QString& word, const QStringList& known);
