#include "frame/vocabulary.h"

#include "frame/documents/documents.h"
#include "frame/frame_state.h"

#include <algorithm>

namespace {

const QString NoEntry = QStringLiteral("[NOT FOUND]");
constexpr int LargestList = 100'000; ///< a broken count must not keep the start busy

/// Where the two first kinds of a mode come from.
enum class Source {
    Own,          ///< sections of its own
    Graphics,     ///< the lists of the graphics mode
    GraphicsPlus, ///< those and sections of its own behind them
};

struct LanguageRow
{
    int Mode;
    const char* Prefix; ///< of its section names
    Source Names;
    bool Comments; ///< "#" and the two operators are coloured
};

constexpr LanguageRow LanguageRows[] = {
    {ModeGfx, "", Source::Own, true},         {ModeSfx, "SFX", Source::GraphicsPlus, true},
    {ModeMus, "MUS", Source::Own, true},      {ModeLvl, "LVL", Source::Own, true},
    {ModeHlt, "HLT", Source::Graphics, true}, {ModeHla, "HLA", Source::Graphics, true},
    {ModeEdi, "EDI", Source::Graphics, true}, {ModeTxt, "TXT", Source::Own, false},
};

QString SectionName(const LanguageRow& row, int kind)
{
    constexpr const char* Graphics[] = {"Elements", "Actions", "GraphicComs", "Special"};
    constexpr const char* Others[] = {"Elements", "Actions", "Coms", "Special"};
    return QString::fromLatin1(row.Prefix) + QString::fromLatin1(row.Mode == ModeGfx ? Graphics[kind] : Others[kind]);
}

QString TableOf(const QString& section)
{
    if (section == QLatin1StringView("Elements"))
        return QStringLiteral("lg_gfxele");
    for (const char* name : {"Actions", "GraphicComs", "Special", "AnimModes", "AnimModifiers"})
        if (section == QLatin1StringView(name))
            return QStringLiteral("lg_gfxact");
    return QStringLiteral("lg_other");
}

bool HasOwnWords(const LanguageRow& row, int kind)
{
    const bool shared = kind == KindElements || kind == KindActions;
    return !shared || row.Names != Source::Graphics;
}

/// A list that is meant to be empty says so; one whose word is missing keeps its place, by which others are counted.
bool IsWhole(const QStringList& words)
{
    return !words.isEmpty() && !words.contains(NoEntry);
}

void NoteDamage(const QString& section, const QStringList& words, QStringList& damaged)
{
    if (!IsWhole(words))
        damaged << TableOf(section) + QStringLiteral(".ini  [") + section + u']';
}

QStringList WordsOf(const LanguageRow& row, int kind, QStringList& damaged)
{
    const bool shared = kind == KindElements || kind == KindActions;
    QStringList own;
    if (HasOwnWords(row, kind)) {
        const QString section = SectionName(row, kind);
        own = ReadWordList(section);
        NoteDamage(section, own, damaged);
    }
    return shared && row.Names != Source::Own ? Frame.WordLists[ModeGfx].at(kind) + own : own;
}

QString FieldText(const QStringList& words)
{
    return words.isEmpty() ? QString() : words.join(u'\n') + u'\n';
}

LanguageObject LanguageOf(const LanguageRow& row)
{
    const auto& words = Frame.WordLists.at(row.Mode);
    LanguageObject language;
    language.Keywords = FieldText(words[KindElements]);
    language.TagEntities = FieldText(words[KindActions]);
    language.TagElementNames = FieldText(words[KindGraphicComs]);
    language.TagAttributeNames = FieldText(words[KindSpecial]);
    if (row.Comments) {
        language.SingleLineComments = QStringLiteral("#");
        language.Operators = QStringLiteral(".\n:");
    }
    if (row.Mode == ModeGfx)
        language.StringDelims = QChar(8);
    return language;
}

} // namespace

KeyWords GraphicsKeyWords()
{
    constexpr int directions = 4; // the first words of the action list
    const auto& words = Frame.WordLists.at(ModeGfx);
    const QStringList& actions = words.at(KindActions);
    return {words.at(KindElements), actions.mid(directions), actions.mid(0, directions)};
}

QStringList ReadWordList(const QString& section)
{
    const QString table = TableOf(section);
    const int count = ReadIni(section, QStringLiteral("Count"), table).toInt();
    QStringList words;
    for (int i = 1; i <= std::min(count, LargestList); ++i)
        words << ReadIni(section, QString::number(i), table);
    return words;
}

void MakeLanguages()
{
    QStringList damaged;
    for (const LanguageRow& row : LanguageRows)
        for (int kind = 0; kind < WordKindCount; ++kind)
            Frame.WordLists.at(row.Mode).at(kind) = WordsOf(row, kind, damaged);
    Frame.Globals.UnregisterAllLanguages();
    for (const LanguageRow& row : LanguageRows)
        Frame.Globals.RegisterLanguage(QString::fromLatin1(Modes().at(row.Mode).Language), LanguageOf(row));
    for (const auto& section : {QStringLiteral("AnimModes"), QStringLiteral("AnimModifiers")})
        NoteDamage(section, ReadWordList(section), damaged);
    if (!damaged.isEmpty())
        ShowMessage(message::WordListsDamaged, damaged.join(u'^'));
}

namespace {

/// The order of the lists behind `before`: a part of a key says which parts may follow it.
std::array<int, WordKindCount> KindsBehind(int mode, const QString& before)
{
    if (!before.endsWith(u'.'))
        return {KindElements, KindActions, KindGraphicComs, KindSpecial};
    const QString key = before.chopped(1);
    const QString part = key.sliced(key.lastIndexOf(u'.') + 1).trimmed();
    if (Frame.WordLists.at(mode).at(KindActions).contains(part, Qt::CaseInsensitive))
        return {KindGraphicComs, KindActions, KindSpecial, KindElements};
    return {KindActions, KindGraphicComs, KindSpecial, KindElements};
}

} // namespace

QStringList CodeListWords(int mode, const QString& before)
{
    QStringList words;
    if (mode == ModeTxt)
        return words;
    for (const int kind : KindsBehind(mode, before))
        if (Frame.Settings.AutoCompleteTemplate.at(kind) == 1)
            words += Frame.WordLists.at(mode).at(kind);
    words.removeAll(NoWords);
    words.removeAll(NoEntry);
    return words;
}

QStringList OfferedWords(EditorPane& pane, bool typing)
{
    const Range caret = pane.GetSel(true);
    QString before = pane.GetLine(caret.EndLine).left(caret.EndCol);
    while (!before.isEmpty() && (before.back().isLetterOrNumber() || before.back() == u'_'))
        before.chop(1);
    if (typing && Frame.CurrentMode == ModeHlt && before.contains(u':'))
        return {};
    return CodeListWords(Frame.CurrentMode, before);
}

bool PickCodeListItem(EditorPane& pane, const QString& item)
{
    const UndoGroup group(pane);
    const Range before = pane.GetSel(true);
    const Range caret{before.EndLine, before.EndCol, before.EndLine, before.EndCol};
    pane.ExecuteCmd(CmdWordLeftExtend);
    QString word = pane.SelText();
    if (item.startsWith(u'[') && !word.startsWith(u'[')) { // no word's part, so that it stands in front
        pane.ExecuteCmd(CmdCharLeftExtend);
        word = pane.SelText();
    }
    const bool otherLine = pane.GetSel(true).StartLine != before.StartLine;
    if (otherLine || item.left(word.size()) != word)
        pane.SetSel(caret, false); // no beginning of the item: it goes in behind the word
    pane.ReplaceSel(item);
    const Range behind = pane.GetSel(true);
    if (item.endsWith(u']') && pane.GetLine(behind.EndLine).mid(behind.EndCol).startsWith(u']'))
        pane.ExecuteCmd(CmdDeleteRight); // it stood there already
    return false;
}
