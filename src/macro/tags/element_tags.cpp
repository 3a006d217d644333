#include "macro/language/run_state.h"
#include "macro/tags/families.h"

namespace {

Value Name(RunState& run)
{
    return Value(run.Element.ElementName.isEmpty() ? QStringLiteral("Nameless") : run.Element.ElementName);
}

template <int ElementRecord::*Field>
Value Number(RunState& run)
{
    return Value(qint32(run.Element.*Field));
}

Value StartFrame(RunState& run)
{
    return Value(qint32(qMax(run.Element.StartFrame, 0)));
}

Value AnimMode(RunState& run)
{
    const QString mode = run.Element.AnimMode.isEmpty() ? QStringLiteral("loop") : run.Element.AnimMode;
    if (!run.Element.Reverse)
        return Value(mode);
    return Value(mode == QLatin1String("loop") ? QStringLiteral("reverse")
                                               : QString(mode + QStringLiteral(",reverse")));
}

Value GlobalSync(RunState& run)
{
    return Value::Truth(run.Element.GlobalSync != 0);
}

constexpr PlainTag ElementRows[] = {
    {"elename", "Of the last pickfrompcx: the element's name, or Nameless.", Name},
    {"eleframes", "Its number of frames.", Number<&ElementRecord::Frames>},
    {"eledelay", "Its delay.", Number<&ElementRecord::Delay>},
    {"eleoffset", "Its offset.", Number<&ElementRecord::Offset>},
    {"elexpos", "Column of its first tile.", Number<&ElementRecord::XPos>},
    {"eleypos", "Row of its first tile.", Number<&ElementRecord::YPos>},
    {"elestartframe", "Its start frame, or 0.", StartFrame},
    {"eleanimmode", "Its animation mode.", AnimMode},
    {"eleglobalsync", "Its global sync: true or false.", GlobalSync},
};

} // namespace

std::span<const PlainTag> ElementTags()
{
    return ElementRows;
}
