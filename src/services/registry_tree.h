#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <map>
#include <optional>
#include <variant>

/// A stored value. Texts are of type 1, 2 or 7, numbers of type 4 or 5 (as they stand, not turned round), bytes of any
/// other type.
struct RegistryEntry
{
    quint32 Type = 1;
    std::variant<QString, qint32, QByteArray> Data;

    bool operator==(const RegistryEntry&) const = default;
};

/// A key with its values and its keys, by their names without letter case; each keeps the name it was made with.
struct RegistryKey
{
    struct Named
    {
        QString Name;
        RegistryEntry Entry;
    };

    QString Name;
    std::map<QString, Named> Values;
    std::map<QString, RegistryKey> Keys;

    /// The key at the end of a way, or null.
    const RegistryKey* Find(const QStringList& way) const;
    RegistryKey* Find(const QStringList& way);

    /// The same, made with all above it if it is not there. Null if a name or the way is too long.
    RegistryKey* Make(const QStringList& way);

    const RegistryEntry* Value(const QString& name) const; ///< or null
    bool Set(const QString& name, RegistryEntry entry);    ///< false: the name is too long
    bool RemoveValue(const QString& name);                 ///< false: there is none
    bool RemoveKey(const QString& name);                   ///< false: there is none, or it has keys of its own
};

QByteArray JsonOf(const RegistryKey& root);

/// None if it is no such text; `why` then tells what is wrong with it.
std::optional<RegistryKey> RegistryFrom(const QByteArray& json, QString& why);
