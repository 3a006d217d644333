#include "services/registry.h"

#include "services/registry_store.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QtEndian>

namespace {

constexpr int Raised = 26001, TypeMismatch = 13;

QString RootName(quint32 classKey)
{
    switch (classKey) {
    case registry::ClassesRoot:
        return QStringLiteral("HKEY_CLASSES_ROOT");
    case registry::CurrentUser:
        return QStringLiteral("HKEY_CURRENT_USER");
    case registry::LocalMachine:
        return QStringLiteral("HKEY_LOCAL_MACHINE");
    default:
        return {};
    }
}

tl::unexpected<RegistryError> Mismatch()
{
    return tl::unexpected(RegistryError{TypeMismatch, {}, QStringLiteral("Type mismatch"), {}});
}

bool IsExpandable(const QString& text)
{
    return text.lastIndexOf(QLatin1Char('%')) - text.indexOf(QLatin1Char('%')) > 1;
}

/// Names of variables between "%" by what they stand for; an unknown one stays.
QString Expanded(const QString& text)
{
    const auto environment = QProcessEnvironment::systemEnvironment();
    QString expanded;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype end = text[at] == QLatin1Char('%') ? text.indexOf(QLatin1Char('%'), at + 1) : -1;
        const QString name = end < 0 ? QString() : text.sliced(at + 1, end - at - 1);
        const bool known = environment.contains(name);
        expanded += known ? environment.value(name) : QString(text[at]);
        at = known ? end + 1 : at + 1;
    }
    return expanded;
}

bool IsInteger(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return value.toLongLong() >= std::numeric_limits<qint32>::min() &&
               value.toLongLong() <= std::numeric_limits<quint32>::max();
    default:
        return false;
    }
}

bool FitsType(quint32 type, const QVariant& value)
{
    if (type == registry::Binary)
        return value.typeId() == QMetaType::QByteArray;
    return (type != registry::Number && type != registry::BigEndianNumber) || IsInteger(value);
}

/// How a value is stored as one of this type; none of a type that cannot be written.
std::optional<RegistryEntry> Stored(quint32 type, const QVariant& value)
{
    RegistryEntry entry;
    switch (type) {
    case registry::Text:
    case registry::ExpandableText:
        entry.Type = IsExpandable(value.toString()) ? registry::ExpandableText : registry::Text;
        entry.Data = value.toString();
        return entry;
    case registry::Binary:
        entry.Type = registry::Binary;
        entry.Data = value.toByteArray();
        return entry;
    case registry::Number:
    case registry::BigEndianNumber:
        entry.Type = registry::Number;
        entry.Data = qint32(value.toLongLong());
        return entry;
    default:
        return {};
    }
}

} // namespace

tl::unexpected<RegistryError> cRegistry::Raise(const QString& text, Failure why)
{
    const QString program = QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
    return tl::unexpected(RegistryError{Raised, program + QStringLiteral(".cRegistry"), text, std::move(why)});
}

/// Root and section as a way through the store; none where there is no such root.
std::optional<QStringList> cRegistry::Way() const
{
    const QString root = RootName(ClassKey);
    if (root.isEmpty())
        return {};
    return QStringList(root) + SectionKey.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
}

QString cRegistry::Position() const
{
    return QLatin1Char('\'') + QString::number(qint32(ClassKey)) + QStringLiteral("',Section: '") + SectionKey +
           QLatin1Char('\'');
}

RegistryResult<> cRegistry::WriteFailed(const QString& value, Failure why) const
{
    return Raise(QStringLiteral("Failed to set registry value Key: ") + Position() + QStringLiteral(",Key: '") +
                     ValueKey + QStringLiteral("' to value: '") + value + QLatin1Char('\''),
                 std::move(why));
}

bool cRegistry::KeyExists()
{
    const auto way = Way();
    return way && (way->size() == 1 || store.Root().Find(*way));
}

RegistryResult<> cRegistry::CreateKey()
{
    const auto way = Way();
    bool made = false;
    const auto changed = store.Change([&](RegistryKey& root) {
        const bool isNew = way && !root.Find(*way);
        made = way && root.Make(*way);
        return isNew && made;
    });
    if (changed && made)
        return {};
    return Raise(QStringLiteral("Failed to create registry Key: '") + SectionKey,
                 changed ? Failure() : changed.error());
}

bool cRegistry::DeleteKey()
{
    const auto way = Way();
    if (!way || way->size() < 2)
        return false;
    return store
        .Change([&](RegistryKey& root) {
            RegistryKey* const above = root.Find(way->first(way->size() - 1));
            return above && above->RemoveKey(way->last());
        })
        .value_or(false);
}

RegistryResult<> cRegistry::DeleteValue()
{
    if (!KeyExists())
        return Raise(QStringLiteral("Failed to open key ") + Position() + QStringLiteral(" for delete access"));
    const auto removed = store.Change([&](RegistryKey& root) {
        RegistryKey* const key = root.Find(*Way());
        return key && key->RemoveValue(ValueKey);
    });
    if (removed.value_or(false))
        return {};
    return Raise(QStringLiteral("Failed to delete registry Key: ") + Position() + QStringLiteral(",Key: '") + ValueKey,
                 removed ? Failure() : removed.error());
}

QVariant cRegistry::Value()
{
    const auto way = Way();
    const RegistryKey* const key = way ? store.Root().Find(*way) : nullptr;
    const RegistryEntry* const entry = key ? key->Value(ValueKey) : nullptr;
    if (!entry)
        return Default;
    ValueType = entry->Type;
    if (const auto* const text = std::get_if<QString>(&entry->Data))
        return ValueType == registry::ExpandableText ? Expanded(*text) : *text;
    if (const auto* const number = std::get_if<qint32>(&entry->Data))
        return ValueType == registry::BigEndianNumber ? qbswap(*number) : *number;
    return std::get<QByteArray>(entry->Data);
}

RegistryResult<> cRegistry::SetValue(const QVariant& value)
{
    if (!FitsType(ValueType, value))
        return Mismatch();
    const std::optional<RegistryEntry> stored = Stored(ValueType, value);
    const auto way = Way();
    bool done = false;
    const auto changed = store.Change([&](RegistryKey& root) {
        const bool isNew = way && !root.Find(*way);
        RegistryKey* const key = way ? root.Make(*way) : nullptr;
        const RegistryEntry* const old = key ? key->Value(ValueKey) : nullptr;
        const bool same = old && stored && *old == *stored;
        done = key && (!stored || same || key->Set(ValueKey, *stored));
        return done && (isNew || (stored && !same));
    });
    if (changed && done)
        return {};
    return WriteFailed(value.toString(), changed ? Failure() : changed.error());
}

std::optional<QStringList> cRegistry::EnumerateValues()
{
    if (!KeyExists())
        return {};
    QStringList names;
    if (const RegistryKey* const key = store.Root().Find(*Way()))
        for (const auto& [folded, value] : key->Values)
            names.append(value.Name);
    return names;
}

std::optional<QStringList> cRegistry::EnumerateSections()
{
    if (!KeyExists())
        return {};
    QStringList names;
    if (const RegistryKey* const key = store.Root().Find(*Way()))
        for (const auto& [folded, inner] : key->Keys)
            names.append(inner.Name);
    return names;
}
