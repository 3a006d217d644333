#include "conf/line_reader.h"

#include "text/document_text.h"

LineReader LinesOf(const DocumentText& pane)
{
    return [&pane](int number) {
        return number >= 0 && number < pane.LineCount() ? std::optional(pane.GetLine(number)) : std::nullopt;
    };
}

LineReader LinesOf(const QStringList& lines)
{
    return [&lines](int number) {
        return number >= 0 && number < lines.size() ? std::optional(lines.at(number)) : std::nullopt;
    };
}
