#include "graphics/sheet_answer.h"

#include "conf/block_fields.h"
#include "conf/write_block.h"
#include "text/document_text.h"

namespace {

void WriteNewElement(DocumentText& text, const SheetAnswer& answer)
{
    const UndoGroup group(text);
    const int line = text.GetSel(true).StartLine;
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
        UpdateElementBlock(text, *request.Block, Conf.Element);
    if (answer.Outcome == SheetOutcome::NewElement)
        WriteNewElement(text, answer);
}
