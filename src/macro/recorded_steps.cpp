#include "macro/recorded_steps.h"

#include "text/command_numbers.h"

#include <algorithm>

namespace {

struct WordOfCommand
{
    int Number;
    const char* Word;
    bool Counts; ///< takes how often
};

constexpr WordOfCommand WordsOfCommands[] = {
    {CmdCharRight, "cursorright", true},
    {CmdCharLeft, "cursorleft", true},
    {CmdCharRightExtend, "cursorrightex", true},
    {CmdCharLeftExtend, "cursorleftex", true},
    {CmdLineUp, "cursorup", true},
    {CmdLineDown, "cursordown", true},
    {CmdLineUpExtend, "cursorupex", true},
    {CmdLineDownExtend, "cursordownex", true},
    {CmdWordRight, "wordright", true},
    {CmdWordLeft, "wordleft", true},
    {CmdWordRightExtend, "wordrightex", true},
    {CmdWordLeftExtend, "wordleftex", true},
    {CmdDeleteRight, "delete", true},
    {CmdDeleteLeft, "backspace", true},
    {CmdParagraphDown, "blockdown", true},
    {CmdParagraphUp, "blockup", true},
    {CmdPageUp, "pageup", true},
    {CmdPageDown, "pagedown", true},
    {CmdPageUpExtend, "pageupex", true},
    {CmdPageDownExtend, "pagedownex", true},
    {CmdBreakLine, "lineinsert", true},
    {CmdOpenLineAbove, "lineinsertabove", true},
    {CmdOpenLineBelow, "lineinsertbelow", true},
    {CmdDeleteLine, "linedelete", true},
    {CmdClearSelection, "unselect", false},
    {CmdCut, "cut", false},
    {CmdCutAppend, "cutappend", false},
    {CmdCutLine, "linecut", false},
    {CmdCopy, "copy", false},
    {CmdPaste, "paste", false},
    {CmdDocumentEnd, "docend", false},
    {CmdDocumentStart, "docstart", false},
    {CmdDocumentEndExtend, "docendex", false},
    {CmdDocumentStartExtend, "docstartex", false},
    {CmdLineEnd, "lineend", false},
    {CmdLineEndExtend, "lineendex", false},
    {CmdLineStart, "linestart", false},
    {CmdLineStartExtend, "linestartex", false},
    {CmdSelectLine, "lineselect", false},
    {CmdSelectAll, "selectall", false},
    {CmdDeleteToLineEnd, "linedeleteright", false},
    {CmdDeleteToLineStart, "linedeleteleft", false},
    {CmdSwapWords, "wordswap", false},
    {CmdSwapChars, "charswap", false},
    {CmdFindNext, "findnext", false},
    {CmdFindPrevious, "findprevious", false},
    {CmdReplaceAll, "replaceall", false},
    {CmdReplaceAllInSelection, "replaceselect", false},
};

constexpr int MostRepeats = 1'048'575; ///< that one line takes

const WordOfCommand* WordOf(int number)
{
    const auto* row = std::ranges::find(WordsOfCommands, number, &WordOfCommand::Number);
    return row == std::end(WordsOfCommands) ? nullptr : row;
}

/// A tag for a character that no token can hold as it is, or not as its first; null: it stands for itself.
QString TagOf(QChar character, bool first)
{
    constexpr char16_t NoBreakSpace = 160, Delete = 127;
    if (character == u'"')
        return QStringLiteral("[q]");
    if (character == u'\n')
        return QStringLiteral("[br]");
    const char16_t code = character.unicode();
    const bool lost = code < u' ' || code == Delete || code == NoBreakSpace;
    const bool leads = first && (character == u'[' || character == u'$' || character == u'(');
    return lost || leads ? QStringLiteral("[chr:%1]").arg(int(code)) : QString();
}

/// Quotes where a blank would end the token.
QString AsToken(const QString& plain)
{
    return plain.contains(u' ') ? u'"' + plain + u'"' : plain;
}

/// The tokens that make a text together. A "|" is none that the language can write: a blank stands for it.
QStringList TokensOf(QString text)
{
    text.replace(u'|', u' ');
    QStringList tokens;
    QString plain;
    const auto end = [&] {
        if (!plain.isEmpty())
            tokens << AsToken(plain);
        plain.clear();
    };
    for (const QChar character : text) {
        if (const QString tag = TagOf(character, plain.isEmpty()); !tag.isNull()) {
            end();
            tokens << tag;
        } else {
            plain += character;
        }
    }
    end();
    return tokens;
}

class SourceLines
{
public:
    explicit SourceLines(QStringList& untold) : notes(untold) {}

    void Take(const RecordedStep& step)
    {
        if (pending && Join(*pending, step))
            return;
        Flush();
        pending = step;
    }
    QString End()
    {
        Flush();
        return lines.isEmpty() ? QString() : lines.join(u'\n') + u'\n';
    }

private:
    /// Both in one; false: they stay two. What was typed and taken back at once is nothing.
    bool Join(RecordedStep& one, const RecordedStep& next)
    {
        using enum RecordedStep::What;
        if (one.Kind == Type && next.Kind == Type && !next.TakesSelection) {
            one.Text += next.Text;
            return true;
        }
        if (one.Kind == Type && next.Kind == Command && next.Number == CmdDeleteLeft)
            return TakeLast(one, next.Count);
        if (one.Kind == Place && next.Kind == Place) {
            one = next;
            return true;
        }
        const WordOfCommand* word = one.Kind == Command && next.Kind == Command ? WordOf(one.Number) : nullptr;
        if (!word || !word->Counts || one.Number != next.Number || one.Count + next.Count > MostRepeats)
            return false;
        one.Count += next.Count;
        return true;
    }

    bool TakeLast(RecordedStep& typed, int count)
    {
        QString left = typed.Text;
        for (; count > 0 && !left.isEmpty(); --count)
            left.chop(left.back().isLowSurrogate() && left.size() > 1 ? 2 : 1);
        if (count > 0 || (left.isEmpty() && typed.TakesSelection))
            return false;
        typed.Text = left;
        if (left.isEmpty())
            pending.reset();
        return true;
    }

    void Flush()
    {
        using enum RecordedStep::What;
        if (!pending)
            return;
        const RecordedStep step = *std::exchange(pending, std::nullopt);
        switch (step.Kind) {
        case Command:
            WriteCommand(step);
            break;
        case Type:
            WritePrint(step.Text);
            break;
        case Place:
            WritePlace(step);
            break;
        case Search:
            WriteSearch(step);
            break;
        case Note:
            WriteNote(step.Text);
            break;
        }
    }

    void WriteNote(const QString& name)
    {
        notes << name;
        lines << QStringLiteral("# %1 cannot be replayed").arg(name);
    }

    void WriteCommand(const RecordedStep& step)
    {
        if (step.Number == CmdGotoLine) {
            lines << QStringLiteral("gototextline %1").arg(step.Count);
            return;
        }
        const WordOfCommand& word = *WordOf(step.Number);
        const QString name = QLatin1String(word.Word);
        if (word.Counts)
            lines << QStringLiteral("%1 %2").arg(name).arg(step.Count);
        else
            lines.resize(lines.size() + step.Count, name);
    }

    /// A line of its own for each line, and for what would repeat the value in front of it.
    void WritePrint(const QString& text)
    {
        if (text.contains(u'|'))
            WriteNote(QStringLiteral("The character |"));
        QStringList line;
        const auto end = [&] {
            if (!line.isEmpty())
                lines << QStringLiteral("print ") + line.join(u' ');
            line.clear();
        };
        for (const QString& token : TokensOf(text)) {
            if (token.startsWith(u'&') || token.startsWith(QLatin1StringView("\"&")))
                end();
            line << token;
            if (token == QLatin1StringView("[br]"))
                end();
        }
        end();
    }

    void WritePlace(const RecordedStep& step)
    {
        const Range& at = step.At;
        if (at.ColumnSel) {
            lines << QStringLiteral("selectblock %1 %2 %3 %4")
                         .arg(at.StartCol)
                         .arg(at.StartLine)
                         .arg(at.EndCol - at.StartCol)
                         .arg(at.EndLine - at.StartLine);
            return;
        }
        // This column means the line's end.
        const bool beside = at.StartCol == LineEndColumn;
        lines << QStringLiteral("locate %1 %2").arg(beside ? LineEndColumn - 1 : at.StartCol).arg(at.StartLine);
        if (beside)
            lines << QStringLiteral("cursorright 1");
        if (step.Steps == 0)
            return;
        const bool forward = std::pair(at.EndLine, at.EndCol) > std::pair(at.StartLine, at.StartCol);
        lines << QStringLiteral("%1 %2")
                     .arg(forward ? QStringLiteral("cursorrightex") : QStringLiteral("cursorleftex"))
                     .arg(step.Steps);
    }

    void WriteSearch(const RecordedStep& step)
    {
        const bool replaces = step.Number == CmdReplaceAll || step.Number == CmdReplaceAllInSelection;
        if (step.Text.contains(u'|') || (replaces && step.Other.contains(u'|'))) {
            WriteNote(QStringLiteral("A search with the character |"));
            return;
        }
        QStringList line{QLatin1String(WordOf(step.Number)->Word), ValueOf(step.Text)};
        if (replaces)
            line << ValueOf(step.Other);
        lines << line.join(u' ');
    }

    /// A token for a whole text: itself, or a variable that is put together in the lines in front. A letter stands in
    /// front of it meanwhile, since numbers would be added up.
    QString ValueOf(const QString& text)
    {
        const QStringList tokens = TokensOf(text);
        if (tokens.isEmpty())
            return QStringLiteral("[null]");
        if (tokens.size() == 1)
            return tokens.front();
        const QString name = QStringLiteral("$text%1").arg(++variables);
        lines << QStringLiteral("dim ") + name << QStringLiteral("set %1 =x").arg(name)
              << QStringLiteral("set %1 +").arg(name) + tokens.join(QLatin1StringView(" +"))
              << QStringLiteral("varlen ") + name << QStringLiteral("varmid %1 2 [lastvarlen]").arg(name)
              << QStringLiteral("set %1 =[lastvarmid]").arg(name);
        return name;
    }

    QStringList& notes;
    QStringList lines;
    std::optional<RecordedStep> pending;
    int variables = 0;
};

} // namespace

bool HasMacroWord(int number)
{
    return WordOf(number);
}

QString RecordedSource(const std::vector<RecordedStep>& steps, QStringList& notes)
{
    SourceLines source(notes);
    for (const RecordedStep& step : steps)
        source.Take(step);
    return source.End();
}
