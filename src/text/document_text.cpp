#include "text/document_text.h"

#include <utility>

UndoGroup::UndoGroup(DocumentText& target) : text(&target)
{
    target.ExecuteCmd(CmdOpenUndoGroup);
}

UndoGroup::~UndoGroup()
{
    Close();
}

void UndoGroup::Close()
{
    if (DocumentText* open = std::exchange(text, nullptr))
        open->ExecuteCmd(CmdCloseUndoGroup);
}

EditBatch::EditBatch(DocumentText& target) : text(target)
{
    text.BeginBatch();
}

EditBatch::~EditBatch()
{
    text.EndBatch();
}
