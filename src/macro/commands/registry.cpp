#include "services/registry.h"
#include "macro/commands/families.h"
#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "services/registry_store.h"

#include <QFileInfo>

namespace {

/// The value that token 1 names in the macro's own section; none: the run has failed.
std::optional<cRegistry> ValueOfMacro(RunState& run, Arguments& in)
{
    if (run.MacroPath.isEmpty()) {
        run.Fail("You need to save this program before you can read,write and delete to the registry.");
        return std::nullopt;
    }
    const QString name = in.Text(1);
    if (run.Failed())
        return std::nullopt;
    cRegistry registry(run.Stage.Registry());
    registry.ClassKey = registry::CurrentUser;
    registry.ValueType = registry::Text;
    // Two separators between the parts, as macros have always had it.
    registry.SectionKey = QStringLiteral("Software\\\\GemforgeBASIC\\\\") + QFileInfo(run.MacroPath).completeBaseName();
    registry.ValueKey = name;
    return registry;
}

void RegWrite(RunState& run, Arguments& in)
{
    std::optional<cRegistry> place = ValueOfMacro(run, in);
    const QString value = place && in.Count() > 1 ? in.Text(2) : QString();
    if (run.Failed())
        return;
    RegistryResult<> written = place->SetValue(value);
    if (written)
        written = place->CreateKey();
    if (!written)
        run.Fail(written.error().Why.Text());
}

void RegRead(RunState& run, Arguments& in)
{
    std::optional<cRegistry> place = ValueOfMacro(run, in);
    if (!place)
        return;
    const QString variable = in.Count() > 1 ? in.Written(2) : QString();
    if (const QString fault = VariableNameFault(variable, false); !fault.isEmpty()) {
        run.Fail(fault);
        return;
    }
    Variable* const named = in.NamedVariable(2);
    if (!named) {
        run.Fail(QStringLiteral("This variable doesn't exist: ") + variable);
        return;
    }
    place->Default = QString();
    named->Held = Value(place->Value().toString());
}

void RegDelete(RunState& run, Arguments& in)
{
    if (std::optional<cRegistry> place = ValueOfMacro(run, in))
        place->DeleteKey();
}

constexpr CommandWord RegistryRows[] = {
    {"regwrite", AtLeast(1), NoWordFlags, "NAME [VALUE]", "Keeps a value for the macro's next runs.", RegWrite},
    {"regread", AtLeast(1), NoWordFlags, "NAME $VARIABLE", "Reads a value that was kept; empty if there is none.",
     RegRead},
    {"regdelete", AtLeast(1), NoWordFlags, "NAME", "Forgets all values that the macro keeps.", RegDelete},
};

} // namespace

std::span<const CommandWord> RegistryCommands()
{
    return RegistryRows;
}
