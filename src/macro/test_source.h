#pragma once

#include "macro/language/source_text.h"

#include <optional>

class DocumentText;

/// Tidies the text of a code pane, so that its user sees what runs, and prepares it. Nothing for an empty text.
std::optional<PreparedSource> PrepareTestText(DocumentText& code);
