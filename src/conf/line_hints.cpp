#include "conf/line_hints.h"

#include "conf/conf_lines.h"
#include "conf/value_hints.h"

#include <QHash>
#include <algorithm>
#include <array>

namespace {

constexpr int MostSlips = 2;

/// Typing slips between two words: a letter too many, too few, another or two exchanged. Gives MostSlips + 1 as soon
/// as the words are known to be farther apart.
int SlipsBetween(QStringView a, QStringView b)
{
    if (qAbs(a.size() - b.size()) > MostSlips)
        return MostSlips + 1;
    std::vector<int> older, old(b.size() + 1), now(b.size() + 1);
    for (qsizetype j = 0; j <= b.size(); ++j)
        old[j] = int(j);
    for (qsizetype i = 1; i <= a.size(); ++i) {
        now[0] = int(i);
        int least = now[0];
        for (qsizetype j = 1; j <= b.size(); ++j) {
            const int other = a[i - 1] == b[j - 1] ? 0 : 1;
            now[j] = std::min({old[j] + 1, now[j - 1] + 1, old[j - 1] + other});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                now[j] = std::min(now[j], older[j - 2] + 1);
            least = std::min(least, now[j]);
        }
        if (least > MostSlips)
            return MostSlips + 1;
        older = old;
        old = now;
    }
    return old.back();
}

LineHint Unknown(const QString& what, QByteArrayView word, const QStringList& known)
{
    const QString text = QString::fromUtf8(word);
    const QString near = NearestWord(text, known);
    const QString said = what + QStringLiteral(" \"") + text + QStringLiteral("\" is not known.");
    if (near.isEmpty())
        return {.Message = said};
    return {.Message = said + QStringLiteral(" Did you mean \"") + near + QStringLiteral("\"?"),
            .Wrong = text,
            .Right = near};
}

/// "background.PLAYING.007" is for one level.
bool IsLevelNumber(const QByteArray& part)
{
    return part.size() == 3 && std::all_of(part.begin(), part.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// The game tells letters apart where the file system does.
ValueSaying SpellingHint(QByteArrayView value, const HintContext& context)
{
    const QString name = CleanValue(QString::fromUtf8(value));
    const QString spelled = context.Spelling.value(name.toLower(), name);
    if (spelled == name || context.FileNames.contains(name))
        return {};
    return {QStringLiteral("The file is spelled \"") + spelled + QStringLiteral("\"."), name, spelled};
}

/// Each part of the key must be a word of the mode: the first an element, the others anything that may follow one.
std::vector<LineHint> UnknownWords(QByteArrayView key, const HintContext& context)
{
    const HintWords& words = context.Words;
    if (words.ElementSet.isEmpty() || key == QByteArrayView("include"))
        return {};
    std::vector<LineHint> found;
    const QList<QByteArray> parts = key.toByteArray().split('.');
    if (!words.ElementSet.contains(parts.first()))
        found.push_back(Unknown(QStringLiteral("The element"), parts.first(), words.Elements));
    for (qsizetype i = 1; i < parts.size(); ++i) {
        const QByteArray& part = parts[i];
        const bool atEnd =
            i + 1 == parts.size() || (i + 2 == parts.size() && words.ParameterSet.contains(parts.last()));
        const bool level = context.LevelNumbers && atEnd && IsLevelNumber(part);
        if (!level && !words.PartSet.contains(part))
            found.push_back(Unknown(QStringLiteral("The word"), part, words.Parts));
    }
    return found;
}

/// The key of a line that sets something; empty for any other line.
QByteArrayView KeyOf(QByteArrayView line)
{
    const qsizetype colon = line.indexOf(':');
    const QByteArrayView key = line.first(qMax<qsizetype>(colon, 0));
    return key.contains('#') || key.contains(' ') || key.contains('\t') ? QByteArrayView() : key;
}

/// The lines of a text that are looked at for hints: `Last` - `First` + 1 of them, from byte `Start` on.
struct Stretch
{
    QByteArrayView Text;
    qsizetype Start;
    int First, Last;
};

/// Calls take(line, number, its first byte) from byte `from` on for the lines up to the last of the stretch.
template <class Take>
void ForLines(const Stretch& stretch, qsizetype from, int number, Take take)
{
    for (; number <= stretch.Last; ++number) {
        const qsizetype begin = from;
        const ByteLine line = TakeLine(stretch.Text, from);
        take(line.Text, number, begin);
        if (line.Break.isEmpty())
            break;
    }
}

/// For each line of the stretch whose key stands above it too, within `reach` bytes: the nearest such line. One walk
/// for all of them.
QHash<int, int> EarlierLines(const Stretch& stretch, qsizetype reach)
{
    QSet<QByteArrayView> wanted;
    ForLines(stretch, stretch.Start, stretch.First,
             [&](QByteArrayView line, int, qsizetype) { wanted.insert(KeyOf(line)); });
    wanted.remove(QByteArrayView());
    qsizetype from = qMax<qsizetype>(0, stretch.Start - reach);
    if (from > 0)
        TakeLine(stretch.Text, from); // the rest of a line
    int above = 0;
    for (qsizetype at = from; at < stretch.Start; ++above)
        TakeLine(stretch.Text, at);
    QHash<QByteArrayView, int> seen;
    QHash<int, int> earlier;
    ForLines(stretch, from, stretch.First - above, [&](QByteArrayView line, int number, qsizetype) {
        const QByteArrayView key = KeyOf(line);
        if (!wanted.contains(key))
            return;
        if (number >= stretch.First && seen.contains(key))
            earlier.insert(number, seen.value(key));
        seen.insert(key, number);
    });
    return earlier;
}

class Hints
{
public:
    explicit Hints(const HintContext& hintContext) : context(hintContext) {}

    /// `rest`: the text from the line on.
    void Look(QByteArrayView line, int number, int earlier, QByteArrayView rest)
    {
        if (!context.BareLines || line.contains(':'))
            for (const QString& message : CheckLine(line, context.Check))
                Add(number, HintLevel::Error, message);
        if (line.size() > LongestGameLine)
            Add(number, HintLevel::Faint, QStringLiteral("The game reads no more than 1,023 bytes of a line."));
        const qsizetype colon = line.indexOf(':');
        const qsizetype cut = line.indexOf('#');
        if (colon <= 0 || (cut >= 0 && cut < colon))
            return;
        if (cut >= 0)
            Add(number, HintLevel::Faint, QStringLiteral("The game cuts the line at \"#\"."));
        if (const QByteArrayView key = KeyOf(line); !key.isEmpty())
            for (LineHint& hint : UnknownWords(key, context)) {
                hint.Line = number;
                Found.push_back(std::move(hint));
            }
        if (earlier >= 0 && !context.Repeats)
            Add(number, HintLevel::Faint,
                QStringLiteral("Line %1 has the same key already; the later line counts.").arg(earlier + 1));
        if (context.Values)
            LookAtValue(line.first(colon), line.sliced(colon + 1), number, rest);
        else
            Say(number, SpellingHint(line.sliced(colon + 1), context));
    }

    std::vector<LineHint> Found;

private:
    void LookAtValue(QByteArrayView key, QByteArrayView value, int number, QByteArrayView rest)
    {
        Say(number, ValueHint(key, value, context.Words.Elements));
        if (!HasSheetName(value, context.Check.SheetKinds))
            return;
        Say(number, SpellingHint(value, context));
        const QString name = CleanValue(QString::fromUtf8(value));
        for (const BlockHint& hint : BlockHints(rest, context.SheetSize ? context.SheetSize(name) : QSize()))
            Add(number + hint.Line, HintLevel::Faint, hint.Message);
    }

    void Say(int number, ValueSaying said)
    {
        if (!said.Message.isEmpty())
            Found.push_back({.Line = number,
                             .Message = std::move(said.Message),
                             .Wrong = std::move(said.Wrong),
                             .Right = std::move(said.Right),
                             .InValue = true});
    }

    void Add(int line, HintLevel level, const QString& message)
    {
        Found.push_back({.Line = line, .Level = level, .Message = message});
    }

    const HintContext& context;
};

} // namespace

HintWords MakeHintWords(const std::array<QStringList, WordKindCount>& lists)
{
    HintWords words;
    for (const QString& word : lists[KindElements])
        if (word != NoWords)
            words.Elements << word;
    for (const int kind : {KindActions, KindGraphicComs, KindSpecial})
        for (const QString& word : lists[kind])
            if (word != NoWords)
                words.Parts << word;
    for (const QString& word : words.Elements)
        words.ElementSet.insert(word.toUtf8());
    for (const QString& word : words.Parts)
        words.PartSet.insert(word.toUtf8());
    for (const QString& word : lists[KindGraphicComs])
        words.ParameterSet.insert(word.toUtf8());
    return words;
}

std::vector<LineHint> HintsForLines(QByteArrayView text, qsizetype start, int first, int last,
                                    const HintContext& context)
{
    constexpr qsizetype NearReach = 64 << 10;
    const Stretch stretch{text, start, first, last};
    const QHash<int, int> earlier = EarlierLines(stretch, text.size() > context.WholeFileLimit ? NearReach : start);
    Hints hints(context);
    ForLines(stretch, start, first, [&](QByteArrayView line, int number, qsizetype begin) {
        hints.Look(line, number, earlier.value(number, -1), text.sliced(begin));
    });
    std::stable_sort(hints.Found.begin(), hints.Found.end(),
                     [](const LineHint& a, const LineHint& b) { return a.Line < b.Line; });
    return std::move(hints.Found);
}

QString NearestWord(const QString& word, const QStringList& known)
{
    QString nearest;
    // A short word is near to everything: one slip a three letters at most.
    int fewest = qMin(MostSlips, int(word.size()) / 3) + 1;
    for (const QString& candidate : known) {
        const int slips = SlipsBetween(word, candidate);
        if (slips < fewest) {
            fewest = slips;
            nearest = candidate;
        }
    }
    return nearest;
}
