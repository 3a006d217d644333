#include "windows/macro/code_completion.h"

#include "frame/editor_pane.h"
#include "macro/code_words.h"
#include "windows/macro/live_marks.h"

namespace {

QStringList CodeWords(EditorPane& code, bool typing)
{
    const QString before = code.GetLine(code.CaretLine()).first(code.CaretColumn());
    return CodeWordsAt(before, typing, [&code] { return LinesOfText(code); });
}

/// False: the pane has nothing more to do.
bool PutCodeWord(EditorPane& code, const QString& item)
{
    const int line = code.CaretLine(), column = code.CaretColumn();
    const CodePick pick = PickOf(item, code.GetLine(line), column);
    const UndoGroup step(code);
    code.SetSel({line, column - pick.Before, line, column + pick.Behind}, true);
    code.ReplaceSel(pick.Text);
    return false;
}

} // namespace

void OfferCodeWords(EditorPane& code)
{
    code.CodeList = CodeWords;
    code.CodeListPick = PutCodeWord;
}
