#include "macro/language/block_ends.h"

#include "macro/language/run_state.h"

namespace {

/// What ends a block and what must not lie in it.
struct BlockForm
{
    const char* End;
    const char* Stop; ///< ends the walk too; null: nothing else does
    const char* Inner;
    const char *NoEnd, *InnerFault;
};
constexpr BlockForm IfForm = {"endif", "else", "if", "If statement without EndIf",
                              "Can't have an If statement embedded in another If statement!"};
constexpr BlockForm CaseForm = {"endcase", "case", "caseselect", "CaseSelect statement without EndCase",
                                "Can't have a CaseSelect statement embedded in another CaseSelect statement!"};
constexpr BlockForm SubForm = {"endsub", nullptr, "sub", "Sub statement without EndSub",
                               "Can't have a Sub inside a Sub!"};

ProgramLine::Search SearchEnd(const RunState& run, const BlockForm& form)
{
    const auto fault = [](const char* text) { return ProgramLine::Search{true, 0, QString::fromLatin1(text)}; };
    for (int i = run.CurrentLine + 1; i <= run.Code.LastLine; ++i) {
        const QString& line = run.Code.Lines[size_t(i)].Written;
        const auto begins = [&line](const char* word) {
            return word && line.startsWith(QLatin1String(word), Qt::CaseInsensitive);
        };
        const bool end = begins(form.End);
        if (i == run.Code.LastLine && !end)
            return fault(form.NoEnd);
        if (begins(form.Inner))
            return fault(form.InnerFault);
        if (end || begins(form.Stop))
            return {true, i - 1, {}};
    }
    return fault(form.NoEnd);
}

void SkipToEnd(RunState& run, const BlockForm& form)
{
    ProgramLine::Search& search = run.Code.Lines[size_t(run.CurrentLine)].BlockEnd;
    if (!search.Done)
        search = SearchEnd(run, form);
    if (!search.Fault.isEmpty())
        run.Fail(search.Fault);
    else
        run.CurrentLine = search.Line;
}

} // namespace

void SkipToElseOrEndIf(RunState& run)
{
    SkipToEnd(run, IfForm);
}

void SkipToNextCase(RunState& run)
{
    SkipToEnd(run, CaseForm);
}

void SkipToEndSub(RunState& run)
{
    SkipToEnd(run, SubForm);
}
