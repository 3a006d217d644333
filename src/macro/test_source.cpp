#include "macro/test_source.h"

#include "text/document_text.h"

namespace {

QStringList LinesOf(const DocumentText& text)
{
    QStringList lines;
    for (int i = 0; i < text.LineCount(); ++i)
        lines << text.GetLine(i);
    return lines;
}

} // namespace

std::optional<PreparedSource> PrepareTestText(DocumentText& code)
{
    const QStringList typed = LinesOf(code);
    if (typed.isEmpty() || (typed.size() == 1 && typed.first().isEmpty()))
        return std::nullopt;
    const TidySource tidy = TidyTypedSource(typed);
    const bool fault = tidy.FaultLine >= 0;
    const QStringList lines = fault ? tidy.Lines + typed.mid(tidy.FaultLine) : tidy.Lines;
    {
        const EditBatch batch(code);
        const QString joined = lines.join(QLatin1String("\r\n"));
        code.ReplaceLines(0, code.LineCount() - 1, FromText(joined, code.LineEnd()));
    }
    if (fault)
        return PreparedSource{{}, QStringLiteral("Variable has no command"), tidy.FaultLine};
    return PrepareSource(WithoutTabs(code.Text()));
}
