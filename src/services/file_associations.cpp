#include "services/file_associations.h"

#include "services/registry.h"

namespace {

struct ClassRow
{
    const char *Name, *Description, *Extension;
};
constexpr ClassRow Classes[] = {
    {"Gemforge.StartUpFile", "Rocks'n'Diamonds Config File", "CONF"},
    {"GemforgeMG.StartUpFile", "Rocks'n'Diamonds Level", "LEVEL"},
};

} // namespace

Result<> AssociateFiles(file_types::Group group, const file_types::Places& places, RegistryStore& store)
{
    const ClassRow& row = Classes[size_t(group)];
    ExeAssociation type;
    type.ExePath = file_types::ProgramOf(group, places);
    type.ClassName = QString::fromLatin1(row.Name);
    type.Description = QString::fromLatin1(row.Description);
    type.Extension = QString::fromLatin1(row.Extension);
    type.OpenText = QStringLiteral("&Open");
    type.IconIndex = 0;
    if (const Result<> made = file_types::Associate(group, places); !made)
        return made;
    if (const auto written = cRegistry(store).CreateEXEAssociation(type); !written)
        return Fail(written.error().Why.Path, written.error().Text + u'^' + written.error().Why.Reason);
    return {};
}
