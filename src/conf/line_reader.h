#pragma once

#include <QString>
#include <functional>
#include <optional>

class DocumentText;

/// Line `number` (from 0) of a text, without its break; nothing past the last line.
using LineReader = std::function<std::optional<QString>(int number)>;
LineReader LinesOf(const DocumentText& pane);
LineReader LinesOf(const QStringList& lines); ///< which must outlive it
