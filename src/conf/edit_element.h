#pragma once

#include "conf/inject.h"

#include <optional>

class DocumentText;

/// What "Edit Element" edits: selects the block around the caret of a graphics text. Nothing without a main line
/// within 100 lines above; message 34 for one without a colon, message 29 for the sub groups EDITOR and PREVIEW.
std::optional<InjectRequest> SelectBlockToEdit(DocumentText& pane);
