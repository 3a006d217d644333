#include "services/file_associations.h"

#include "services/registry.h"
#include "services/registry_store.h"

namespace {

struct ClassRow
{
    const char *Name, *Description, *Extension;
};
constexpr ClassRow Classes[] = {
    {"Gemforge.StartUpFile", "Rocks'n'Diamonds Config File", "CONF"},
    {"GemforgeMG.StartUpFile", "Rocks'n'Diamonds Level", "LEVEL"},
};

/// What the classes of programs lie under, in both views.
const QStringList Views[] = {
    {QStringLiteral("HKEY_CLASSES_ROOT")},
    {QStringLiteral("HKEY_LOCAL_MACHINE"), QStringLiteral("SOFTWARE"), QStringLiteral("Classes")}};

/// False: there is none.
bool RemoveWhole(RegistryKey& above, const QString& name)
{
    RegistryKey* key = above.Find({name});
    if (!key)
        return false;
    key->Keys.clear();
    return above.RemoveKey(name);
}

/// An extension that another program has taken since stays that one's.
bool RemoveClass(RegistryKey& classes, const ClassRow& row)
{
    const QString name = QString::fromLatin1(row.Name), extension = u'.' + QString::fromLatin1(row.Extension);
    const RegistryKey* type = classes.Find({extension});
    const RegistryEntry* owner = type ? type->Value({}) : nullptr;
    const bool ours = owner && owner->Data == decltype(owner->Data)(name);
    const bool removed = ours && RemoveWhole(classes, extension);
    return RemoveWhole(classes, name) || removed;
}

} // namespace

Result<> TakeBackFiles(const file_types::Places& places, RegistryStore& store)
{
    if (const Result<> back = file_types::TakeBack(places); !back)
        return back;
    const auto changed = store.Change([](RegistryKey& root) {
        bool removed = false;
        for (const QStringList& view : Views)
            if (RegistryKey* classes = root.Find(view))
                for (const ClassRow& row : Classes)
                    removed = RemoveClass(*classes, row) || removed;
        return removed;
    });
    return changed ? Result<>() : tl::unexpected(changed.error());
}

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
