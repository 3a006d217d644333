#include "macro/source_marks.h"

#include "conf/line_hints.h"
#include "macro/block_marks.h"
#include "macro/language/program.h"
#include "macro/language/source_text.h"
#include "macro/language/word_tables.h"
#include "macro/source_names.h"
#include "macro/word_facts.h"

#include <QSet>

#include <algorithm>

namespace {

constexpr int MostGuesses = 50; ///< at the word that was meant; a source in another language has one on every line

bool IsQuoteOpen(const QString& line)
{
    return line.count(u'"') % 2 != 0;
}

/// A typed source as its run would take it, line by line.
struct LooseSource
{
    QStringList Lines;
    std::vector<LineMark> Marks; ///< what stands in the way of a run before its first line
    QSet<int> Cut;               ///< lines whose rest cannot be read
};

/// Quotes that do not pair up spoil the whole source: the line they probably stand on is left out up to them.
void ReadLoosely(LooseSource& source, const QStringList& tidy, const QString& fault)
{
    bool told = false;
    for (int i = 0; i < int(tidy.size()); ++i) {
        const QString& line = tidy.at(i);
        const bool broken = IsQuoteOpen(line);
        if (broken && !std::exchange(told, true))
            source.Marks.push_back({i, true, fault});
        if (broken)
            source.Cut.insert(i);
        const QString whole = broken ? line.section(u'"', 0, 0).trimmed() : line;
        source.Lines << PrepareSource(WithoutTabs(whole)).Lines.value(0);
    }
}

LooseSource ReadTyped(QStringList typed)
{
    LooseSource source;
    for (int i = 0; i < int(typed.size()); ++i)
        if (typed.at(i).trimmed().startsWith(u'$')) {
            source.Marks.push_back({i, true, QStringLiteral("Variable has no command")});
            typed[i].clear();
        }
    const QStringList tidy = TidyTypedSource(typed).Lines;
    PreparedSource prepared = PrepareSource(WithoutTabs(tidy.join(QLatin1String("\r\n"))));
    if (prepared.ErrorText.isEmpty())
        source.Lines = std::move(prepared.Lines);
    else
        ReadLoosely(source, tidy, prepared.ErrorText);
    return source;
}

class SourceLook
{
public:
    explicit SourceLook(LooseSource wanted) : source(std::move(wanted)), marks(std::move(source.Marks)), blocks(marks)
    {
    }

    std::vector<LineMark> Marks()
    {
        for (int i = 0; i < int(source.Lines.size()); ++i)
            if (!IsBlankLine(source.Lines.at(i)))
                LookAt(i);
        blocks.End();
        LookAtMentions();
        LookAtJumps();
        std::ranges::stable_sort(marks, {}, &LineMark::Line);
        return std::move(marks);
    }

private:
    void Mark(int line, const QString& message, bool strong = true) { marks.push_back({line, strong, message}); }

    void LookAt(int index)
    {
        const QString& line = source.Lines.at(index);
        const QString fault = source.Cut.contains(index) ? QString() : PrePassLine(labels, line, index);
        if (!fault.isEmpty())
            Mark(index, fault);
        const QStringList tokens = line.split(u' ');
        const CommandWord* word = FindCommand(tokens.front());
        if (!word) {
            if (!blocks.InGroup() && fault.isEmpty())
                MarkUnknown(index, tokens.front());
            return;
        }
        blocks.Take(index, QLatin1String(word->Word));
        if (source.Cut.contains(index))
            return;
        if (const QString wrong = ShapeFault(tokens, word->Form); !wrong.isEmpty() && fault.isEmpty())
            Mark(index, wrong + u'\n' + FormOf(*word));
        LookAtArguments(index, QLatin1String(word->Word), tokens);
    }

    void MarkUnknown(int line, const QString& word)
    {
        Mark(line, QStringLiteral("Unrecognised command: ") + word + Meant(word.toLower(), CommandNames()));
    }

    /// " Did you mean ...?", or nothing.
    QString Meant(const QString& written, const QStringList& known, bool always = false)
    {
        if (!always && --guesses < 0)
            return {};
        const QString near = NearestWord(written, known);
        return near.isEmpty() ? QString() : QStringLiteral(". Did you mean \"%1\"?").arg(near);
    }

    void LookAtArguments(int line, QLatin1StringView word, const QStringList& tokens)
    {
        if (word == QLatin1StringView("dim")) {
            Declare(tokens.value(1));
            return;
        }
        const bool jump = word == QLatin1StringView("gosub") || word == QLatin1StringView("gotolabel");
        for (qsizetype i = 1; i < tokens.size(); ++i) {
            const QString value = WithoutOperator(word, tokens.at(i), int(i));
            if (!value.contains(u'$') && !value.contains(u'[') && !jump)
                continue;
            const Token token = ReadToken(value, variables);
            if (jump && i == 1 && token.What == Token::Kind::Plain)
                jumps.push_back({line, word, token.Shown.Text()});
            LookAtToken(line, token);
        }
    }

    void Declare(const QString& name)
    {
        if (VariableNameFault(name, false).isEmpty() && !variables.Find(name))
            variables.Declare(variables.Mention(name));
    }

    void LookAtToken(int line, const Token& token)
    {
        if (token.What == Token::Kind::Variable)
            mentions.push_back({line, token.Slot});
        if (token.What == Token::Kind::Plain)
            LookAtPlain(line, token.Written);
        for (const Token& part : token.Parts)
            LookAtToken(line, part);
    }

    /// A tag that is none says itself; it may be meant so, unless one is very near.
    void LookAtPlain(int line, const QString& written)
    {
        if (!written.startsWith(u'[') || !written.endsWith(u']') || SpecialWords().contains(written.toLower()))
            return;
        const QString near = --guesses < 0 ? QString() : NearestWord(written.toLower(), PlainTagNames());
        if (!near.isEmpty())
            Mark(line, QStringLiteral("%1 is no tag. Did you mean \"%2\"?").arg(written, near), false);
    }

    void LookAtMentions()
    {
        QStringList declared;
        for (const Variable* variable : variables.InOrder())
            declared << variable->Name;
        const Mention* last = nullptr;
        for (const Mention& mention : mentions) {
            const bool again = last && last->Line == mention.Line && last->Name == mention.Name;
            last = &mention;
            if (!mention.Name->Declared && !again)
                Mark(mention.Line, QStringLiteral("The variable: %1 has not been dimmed").arg(mention.Name->Name) +
                                       Meant(mention.Name->Name, declared));
        }
    }

    void LookAtJumps()
    {
        for (const Jump& jump : jumps) {
            const QString name = jump.Name.startsWith(u'@') ? jump.Name : QString(u'@' + jump.Name);
            if (!labels.Find(name))
                Mark(jump.Line,
                     (jump.Word == QLatin1StringView("gosub") ? QStringLiteral("Couldn't find the Sub: ")
                                                              : QStringLiteral("This Label doesn't exist: ")) +
                         name);
        }
    }

    struct Mention
    {
        int Line;
        const Variable* Name;
    };
    struct Jump
    {
        int Line;
        QLatin1StringView Word;
        QString Name;
    };

    LooseSource source;
    std::vector<LineMark> marks;
    BlockMarks blocks;
    LabelTable labels;
    VariableTable variables;
    std::vector<Mention> mentions;
    std::vector<Jump> jumps;
    int guesses = MostGuesses;
};

} // namespace

std::vector<LineMark> MarksOfSource(const QStringList& typed)
{
    return SourceLook(ReadTyped(typed)).Marks();
}
