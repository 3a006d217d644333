#include "services/registry.h"
#include "services/registry_store.h"

namespace {

constexpr QLatin1StringView Machine("SOFTWARE\\Classes\\");

QString Quoted(const QString& path)
{
    const QLatin1Char quote('"');
    QString exe = path.trimmed();
    if (!exe.startsWith(quote))
        exe.prepend(quote);
    return exe.endsWith(quote) && exe.size() > 1 ? exe : exe + quote;
}

} // namespace

/// One change of the store for many writes; what one of them raises counts, else what the store says.
RegistryResult<> cRegistry::Together(const std::function<RegistryResult<>()>& writes)
{
    RegistryResult<> result;
    const auto changed = store.Change([&](RegistryKey& root) {
        RegistryKey before = root;
        result = writes();
        if (!result)
            root = std::move(before);
        return result.has_value();
    });
    return changed || !result ? result : WriteFailed({}, changed.error());
}

/// Under both views of the classes.
RegistryResult<> cRegistry::SetClassValue(const QString& text)
{
    const QString section = SectionKey;
    ClassKey = registry::ClassesRoot;
    RegistryResult<> written = SetValue(text);
    if (written) {
        ClassKey = registry::LocalMachine;
        SectionKey = Machine + section;
        written = SetValue(text);
        SectionKey = section;
    }
    return written;
}

RegistryResult<> cRegistry::SetVerb(const QString& section, const QString& text, const QString& command)
{
    SectionKey = section;
    return SetClassValue(text).and_then([&] {
        SectionKey = section + QStringLiteral("\\command");
        return SetClassValue(command);
    });
}

RegistryResult<> cRegistry::CreateEXEAssociation(const ExeAssociation& type)
{
    ValueType = registry::Text;
    ValueKey.clear();
    const QString exe = Quoted(type.ExePath);
    const struct
    {
        const char* Name;
        std::optional<QString> Text;
        QString Usual;
        const char* Tail;
    } Verbs[] = {
        {"open", type.OpenText, QStringLiteral("&Open"), " \"%1\""},
        {"print", type.PrintText, QStringLiteral("&Print"), " /p \"%1\""},
        {"add", type.InstallText, QStringLiteral("&Install ") + type.Extension, " /a \"%1\""},
        {"new", type.NewText, QStringLiteral("&New"), " /n \"%1\""},
    };
    return Together([&]() -> RegistryResult<> {
        SectionKey = QLatin1Char('.') + type.Extension;
        if (auto set = SetClassValue(type.ClassName); !set)
            return set;
        SectionKey = type.ClassName;
        if (auto set = SetClassValue(type.Description); !set)
            return set;
        for (const auto& verb : Verbs) {
            if (!verb.Text)
                continue;
            const QString section = type.ClassName + QStringLiteral("\\shell\\") + QLatin1String(verb.Name);
            const QString text = verb.Text->isEmpty() ? verb.Usual : *verb.Text;
            if (auto set = SetVerb(section, text, exe + QLatin1String(verb.Tail)); !set)
                return set;
        }
        if (type.IconIndex <= -1)
            return {};
        SectionKey = type.ClassName + QStringLiteral("\\DefaultIcon");
        return SetClassValue(exe + QLatin1Char(',') + QString::number(type.IconIndex));
    });
}

RegistryResult<> cRegistry::CreateAdditionalEXEAssociations(const QString& className, const std::vector<ExeVerb>& verbs)
{
    ValueType = registry::Text;
    ValueKey.clear();
    ClassKey = registry::ClassesRoot;
    SectionKey = className;
    if (!KeyExists())
        return Raise(QStringLiteral("Error - attempt to create additional associations before class defined."));
    return Together([&]() -> RegistryResult<> {
        for (const ExeVerb& verb : verbs) {
            const QString section = className + QStringLiteral("\\shell\\") + verb.Name;
            if (auto set = SetVerb(section, verb.Text, verb.Command); !set)
                return set;
        }
        return {};
    });
}
