#include "sets/merge_dump.h"

#include "text/document_text.h"

#include <algorithm>

namespace {

constexpr int LinesAbove = 3, LinesBelow = 5, LastColumn = 50;

} // namespace

void MergeDump(DocumentText& text, int wanted, const QByteArray& printed)
{
    const int line = std::min(wanted, text.LineCount() - 1);
    text.InsertText(QString::fromUtf8(printed), {line, 0, line, 0});
    text.SetSel({wanted - LinesAbove, 0, std::min(wanted + LinesBelow, text.LineCount() - 1), LastColumn}, false);
    text.ReplaceSel(QStringLiteral("\r\n"));
}

void DropPlaceholder(DocumentText& text, const QString& placeholder)
{
    for (int line = 1; line < text.LineCount(); ++line)
        if (text.GetLine(line) == placeholder) {
            text.SetSel({line - 1, 0, line + 1, 0}, false); // the empty line in front with it
            text.ReplaceSel({});
            return;
        }
}
