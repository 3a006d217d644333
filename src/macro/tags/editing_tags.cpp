#include "frame/frame_state.h"
#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "macro/tags/families.h"
#include "text/document_text.h"
#include "text/line_text.h"

namespace {

Value Null(RunState&)
{
    return {};
}

Value LineBreakTag(RunState&)
{
    return Value(QStringLiteral("\r\n"));
}

Value QuoteTag(RunState&)
{
    return Value(QStringLiteral("\""));
}

/// Blanks up to the value column, behind the text of the variable that `set` works on.
Value Tab(RunState& run)
{
    if (Frame.Settings.SuperTab)
        return Value(QStringLiteral("\t"));
    const qsizetype blanks = Frame.Settings.SpacerWidth - run.TabbedValue.Text().size() - 1;
    return Value(QString(qMax<qsizetype>(blanks, 0), u' '));
}

Value SelectedText(RunState& run)
{
    return Value(run.Text().SelText());
}

Value SelectedSize(RunState& run)
{
    return Value(qint32(run.Text().SelLength()));
}

Value CurrentWord(RunState& run)
{
    return Value(run.Text().CurrentWord());
}

Value WordSize(RunState& run)
{
    return Value(qint32(run.Text().CurrentWordLength()));
}

Value CurrentLineText(RunState& run)
{
    return Value(run.Text().GetLine(run.Text().GetSel(true).StartLine));
}

Value LineSize(RunState& run)
{
    return Value(qint32(run.Text().GetLineLength(run.Text().GetSel(true).StartLine)));
}

Value LineCount(RunState& run)
{
    return Value(qint32(run.Text().LineCount() - 1));
}

Value CursorX(RunState& run)
{
    return Value(qint32(run.Text().GetSel(true).StartCol));
}

Value CursorY(RunState& run)
{
    return Value(qint32(run.Text().GetSel(true).StartLine));
}

/// The character so many columns and lines away from the caret; empty where there is none.
template <int Columns, int Lines>
Value CharAt(RunState& run)
{
    const DocumentText& text = run.Text();
    const QString line = text.GetLine(text.CaretLine() + Lines);
    const int column = text.CaretColumn() + Columns;
    return column < 0 ? Value() : Value(line.mid(column, 1));
}

Value ClipboardText(RunState& run)
{
    return Value(run.Stage.Clipboard().Text());
}

constexpr PlainTag EditingTagRows[] = {
    {"null", "Nothing: the way to give an empty value.", Null},
    {"br", "A line break.", LineBreakTag},
    {"q", "A double quote.", QuoteTag},
    {"tab", "Blanks up to the value column, or a tab while Super Tab is on. set pads the variable with it.", Tab},
    {"selectedtext", "The selected text.", SelectedText},
    {"selectedsize", "Length of the selected text; a line break counts two.", SelectedSize},
    {"currentword", "The word at the caret.", CurrentWord},
    {"wordsize", "Length of the word at the caret.", WordSize},
    {"currentline", "The line in which the selection starts.", CurrentLineText},
    {"linesize", "Length of the line in which the selection starts.", LineSize},
    {"linecount", "Number of lines, less one; -1 for an empty text.", LineCount},
    {"cursorx", "Column of the selection's start, from 0.", CursorX},
    {"cursory", "Line of the selection's start, from 0.", CursorY},
    {"charcurrent", "The character right of the caret.", CharAt<0, 0>},
    {"charleft", "The character left of the caret.", CharAt<-1, 0>},
    {"charright", "The character behind [charcurrent].", CharAt<1, 0>},
    {"charabove", "The character above [charcurrent].", CharAt<0, -1>},
    {"charbelow", "The character below [charcurrent].", CharAt<0, 1>},
    {"clipboard", "The text on the clipboard.", ClipboardText},
};

} // namespace

std::span<const PlainTag> EditingTags()
{
    return EditingTagRows;
}
