#include "macro/macro_powers.h"

#include "macro/macro_ports.h"

#include <QHash>

namespace {

/// Words and what they can do. Reading alone, as peek and dir do, is none of it.
struct PowerRow
{
    int Power;
    const char* Words;
};
constexpr PowerRow PowerRows[] = {
    {TouchesFiles,
     "openfileload openfileinsert openfilesave filekill dirkill dirmake filecopy filemove dircopy dirmove "
     "resunpack zip unzip ziplist fileattrib poke pokeadd"},
    {StartsPrograms, "execute"},
    {SendsKeys, "keysend mousemove mousebutton"},
    {SteersWindows, "winset wintitle winkill winhide winshow winsizemax winsizemin winsizenormal winkillall winshowall "
                    "winhideall winmove winsize winwaituntilclose mehide meshow"},
    {WritesLevels, "levsave levsavecustoms"},
    {UsesRegistry, "regwrite regread regdelete"},
};

QHash<QString, int> PowersByWord()
{
    QHash<QString, int> powers;
    for (const PowerRow& row : PowerRows)
        for (const QString& word : QString::fromLatin1(row.Words).split(u' '))
            powers.insert(word, row.Power);
    return powers;
}

} // namespace

int PowersOf(const QStringList& lines)
{
    static const QHash<QString, int> byWord = PowersByWord();
    int powers = 0;
    for (const QString& line : lines)
        powers |= byWord.value(line.section(u' ', 0, 0).toLower());
    return powers;
}

bool CanRunOnCopy(int powers)
{
    return powers == 0;
}
