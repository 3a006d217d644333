#include "frame/frame_state.h"
#include "macro/commands/families.h"
#include "macro/language/run_state.h"
#include "services/random_words.h"

namespace {

void Random(RunState& run, Arguments& in)
{
    const qint32 low = in.Number(1), high = in.Number(2);
    if (run.Failed())
        return;
    run.Last.RandomLow = low;
    run.Last.RandomHigh = high;
    run.Last.Random = Value(qint32(run.Random.Between(low, high)));
}

/// Sum of the character codes while it does not exceed two thousand million.
quint32 SumOfCodes(const QString& text)
{
    constexpr quint32 LargestSum = 2'000'000'000;
    quint32 sum = 0;
    for (const QChar c : text) {
        if (sum > LargestSum)
            break;
        sum += c.unicode();
    }
    return sum;
}

void RandomSeed(RunState& run, Arguments& in)
{
    if (in.Count() != 1) {
        run.Random.SeedFromTime();
        return;
    }
    const Value text = in.Shown(1);
    if (run.Failed())
        return;
    const quint32 seed = text.IsNumeric() ? quint32(TextToLong(run, text)) : SumOfCodes(text.Text());
    if (!run.Failed())
        run.Random.Seed(seed);
}

struct ElementKind
{
    const char* Word;
    int Mode;
    int Kind;
};
constexpr ElementKind ElementKinds[] = {
    {"gfxelement", ModeGfx, KindElements},    {"sfxelement", ModeSfx, KindElements},
    {"muselement", ModeMus, KindElements},    {"gfxaction", ModeGfx, KindActions},
    {"sfxaction", ModeSfx, KindActions},      {"musaction", ModeMus, KindActions},
    {"gfxcommand", ModeGfx, KindGraphicComs}, {"sfxcommand", ModeSfx, KindGraphicComs},
    {"muscommand", ModeMus, KindGraphicComs}, {"gfxspecial", ModeGfx, KindSpecial},
    {"sfxspecial", ModeSfx, KindSpecial},     {"musspecial", ModeMus, KindSpecial},
};

void Element(RunState& run, Arguments& in)
{
    const QString kind = in.Text(1);
    const qint32 index = in.Number(2);
    if (run.Failed())
        return;
    run.Last.Element = Value(kind);
    for (const ElementKind& row : ElementKinds) {
        if (kind.compare(QLatin1String(row.Word), Qt::CaseInsensitive) != 0)
            continue;
        const QStringList& words = Frame.WordLists[size_t(row.Mode)][size_t(row.Kind)];
        if (index >= 1 && index <= words.size())
            run.Last.Element = Value(words.at(index - 1));
    }
}

void RandomWord(RunState& run, Arguments& in)
{
    constexpr int ShapeArgument = 3, CaseArgument = 4, ContentArgument = 5;
    const qint32 min = in.Number(1), max = in.Number(2);
    const QString shape = in.Text(ShapeArgument), letterCase = in.Text(CaseArgument),
                  content = in.Text(ContentArgument);
    if (run.Failed())
        return;
    const std::optional<WordWish> wish = ReadWordWish(min, max, shape, letterCase, content);
    if (wish)
        run.Last.RandomWord = Value(MakeRandomWord(*wish, [&run] { return run.Random.Next(); }));
    else
        run.Fail("Randomword uses the format:  $MinWordSize,   $MaxWordSize,   Rand/Word,   Rand/Uppr/Lowr/Name,   "
                 "Nums/Letr");
}

constexpr CommandWord RandomRows[] = {
    {"random", ExactlyAny(2), NoWordFlags, "LOW HIGH",
     "A whole number from LOW to HIGH: [lastrandom]. [newrandom] draws another.", Random},
    {"randomseed", AtLeast(0), NoWordFlags, "[TEXT]",
     "Begins the random numbers anew. The same text gives the same numbers; without one they come from the clock.",
     RandomSeed},
    {"randomword", ExactlyAny(5), NoWordFlags, "MIN MAX rand|word rand|uppr|lowr|name nums|letr",
     "Makes up a word of MIN to MAX characters: [lastrandomword]. word: vowels and consonants in turn; nums: digits "
     "too.",
     RandomWord},
    {"element", ExactlyAny(2), NoWordFlags, "KIND N",
     "The N-th word of a list: [lastelement]. KIND is gfx, sfx or mus with element, action, command or special behind "
     "it.",
     Element},
};

} // namespace

std::span<const CommandWord> RandomCommands()
{
    return RandomRows;
}
