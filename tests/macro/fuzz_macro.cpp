#include "fuzz_macro.h"

#include "batch/macro_answers.h"
#include "frame/frame_state.h"
#include "frame/run_scope.h"
#include "macro/language/word_tables.h"
#include "macro/plain_stage.h"
#include "macro/run_macro.h"

namespace {

constexpr qint64 MomentMs = 40;
constexpr qsizetype LargestText = 1 << 20; ///< a macro that prints without end is stopped there

const char* const FuzzArguments[] = {
    "$a",          "$b",          "$none",
    "=1",          "+2",          "-[newrandom]",
    "*$a",         "/0",          "=$b",
    "==$a",        "<>1",         ">>x",
    "<<5",         "==?g",        "==[exist]",
    "@one",        "@two",        "one",
    "?g",          "?h",          "1",
    "0",           "-3",          "2147483647",
    "99999999999", "&HFFFF",      "abc",
    "\"a  b\"",    "\"\"",        "[null]",
    "[br]",        "[tab]",       "[loopnumber]",
    "[linecount]", "(1+2)",       "($a*2)",
    "(($a-1)/0)",  "[rnd:1:9]",   "[grp:?g:1]",
    "[sin:1:2]",   "[chr:10]",    "[abs:$a]",
    "&3",          "on",          "off",
    "clipbackup",  "cliprestore", "popup",
    "pickall",     "else",        "*.*",
    "Sub",         "..",          "",
    "[dir:1]",     "[asc:ab]",    "[dec:ffff]",
    "[lastask]",   "word",        "nums",
    "3",           "[",           "[chr:",
};

} // namespace

QString FuzzMacro(QByteArrayView bytes, const QString& folder)
{
    OwnClipboard clipboard;
    PlainStage stage(clipboard);
    LineText& text = stage.TargetLines();
    text.SetText(QStringLiteral("one two\r\n\r\nthree\r\n"));
    RunScope scope(RunKind::Macro, QStringLiteral("fuzz"), MomentMs);
    stage.OnPrint = [&](const QString& printed) {
        if (printed.size() > LargestText || text.LineCount() > LargestText / 16)
            scope.Stop(StopReason::Break);
    };
    MacroAnswers asker({QStringLiteral("OK"), QStringLiteral("Continue"), QStringLiteral("x")});
    Asker* const before = std::exchange(Frame.Ask, &asker);
    asker.OnMisfit = [&scope](const QString&) { scope.Stop(StopReason::Break); };
    MacroRequest request;
    request.Source = PrepareSource(SourceFromBytes(bytes));
    request.Folder = folder;
    request.Seed = 7;
    const auto error = RunMacro(request, stage, scope);
    Frame.Ask = before;
    if (error && error->Text.isEmpty())
        return QStringLiteral("an error without a text");
    if (error && (error->Line < 0 || error->Line > request.Source.Lines.size()))
        return QStringLiteral("an error in line %1").arg(error->Line);
    const Range selection = text.GetSel(true);
    const int last = qMax(text.LineCount(), 1) - 1;
    const bool beyond = !selection.ColumnSel && text.CaretColumn() > text.GetLineLength(text.CaretLine());
    if (selection.StartLine < 0 || selection.EndLine > last || beyond)
        return QStringLiteral("the caret is outside the text");
    LineText again(clipboard);
    again.LoadBytes(text.FileBytes());
    if (again.Text() != text.Text())
        return QStringLiteral("the text is not what its bytes say");
    return {};
}

QByteArray RandomProgram(QRandomGenerator& random)
{
    static const auto words = [] {
        std::vector<const CommandWord*> all;
        for (const auto& family : CommandFamilies())
            for (const CommandWord& word : family)
                all.push_back(&word);
        return all;
    }();
    QByteArray program = "dim $a\r\ndim $b\r\ngroup ?g\r\n1\r\nabc\r\nendgroup\r\n";
    for (int line = random.bounded(4, 40); line > 0; --line) {
        if (random.bounded(12) == 0)
            program += random.bounded(2) ? "label @one\r\n" : "sub @two\r\n";
        const CommandWord& word = *words.at(size_t(random.bounded(int(words.size()))));
        program += word.Word;
        const int more = word.Form.Most < 0 ? random.bounded(3) : random.bounded(20) == 0;
        for (int argument = word.Form.Least + more; argument > 0; --argument)
            program += QByteArray(" ") + FuzzArguments[random.bounded(int(std::size(FuzzArguments)))];
        program += "\r\n";
    }
    return program;
}
