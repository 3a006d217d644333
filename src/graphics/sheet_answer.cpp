#include "graphics/sheet_answer.h"

#include "conf/block_fields.h"
#include "conf/block_outline.h"
#include "conf/write_block.h"
#include "frame/frame_state.h"
#include "text/document_text.h"

namespace {

/// The caret's line; behind the end of a block that it would part.
int LineOfNewElement(const DocumentText& text)
{
    const int line = text.GetSel(true).StartLine;
    const auto block = BlockAround(LinesOf(text), line, Frame.Settings.SheetKinds);
    return block ? block->Last + 1 : line;
}

void WriteNewElement(DocumentText& text, const SheetAnswer& answer)
{
    const UndoGroup group(text);
    const int line = LineOfNewElement(text);
    text.InsertLine(line, answer.Key);
    text.SelectLine(line, true);
    Conf.Element.AnimMode = ModeWithReverse(Conf.Element);
    WriteElementBlock(text, Conf.Element, answer.Full, CallersUndoGroup);
    Conf.Element.ImageFile.clear();
}

} // namespace

void WriteSheetAnswer(DocumentText& text, const SheetRequest& request, const SheetAnswer& answer)
{
    Conf.Element = answer.Element;
    if (answer.Outcome == SheetOutcome::Update && request.Block)
        UpdateElementBlock(text, *request.Block, Conf.Element, answer.Added);
    if (answer.Outcome == SheetOutcome::NewElement)
        WriteNewElement(text, answer);
    if (answer.Outcome == SheetOutcome::GoTo)
        text.SetSel({.StartLine = answer.Line, .EndLine = answer.Line}, true);
}
