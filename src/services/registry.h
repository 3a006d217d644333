#pragma once

#include "platform/result.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <optional>
#include <vector>

class RegistryStore;

namespace registry {

constexpr quint32 ClassesRoot = 0x80000000, CurrentUser = 0x80000001, LocalMachine = 0x80000002;

enum Type : quint32 { Text = 1, ExpandableText = 2, Binary = 3, Number = 4, BigEndianNumber = 5, TextList = 7 };

} // namespace registry

/// What an operation of the registry raises.
struct RegistryError
{
    int Number; ///< 26001; 13 for a value of the wrong kind
    QString Source;
    QString Text;
    Failure Why; ///< what the store said
};

template <class T = void>
using RegistryResult = tl::expected<T, RegistryError>;

/// A file type with its verbs. A verb that is not there has no text, an empty text is the usual one.
struct ExeAssociation
{
    QString ExePath, ClassName, Description;
    QString Extension; ///< without the dot
    QString OpenText;
    std::optional<QString> PrintText = {}, NewText = {}, InstallText = {};
    int IconIndex = -1; ///< -1: no icon
};

struct ExeVerb
{
    QString Name, Text, Command;
};

/// One position in the registry: a root, a section below it (names with "\" between) and the name of a value, empty for
/// the section's own. Each operation works on it. A new one reads and writes nothing before its position is set.
class cRegistry
{
public:
    explicit cRegistry(RegistryStore& where) : store(where) {}

    quint32 ClassKey = 0;
    QString SectionKey;
    QString ValueKey;
    quint32 ValueType = 0; ///< a write's, set by a read
    QVariant Default;      ///< what a read gives where there is no value

    bool KeyExists();
    [[nodiscard]] RegistryResult<> CreateKey();
    bool DeleteKey(); ///< false for a section that is not there or has sections of its own, which stays
    [[nodiscard]] RegistryResult<> DeleteValue();

    /// A text (expanded, if it is of that type), an int or a QByteArray.
    QVariant Value();

    /// A text with something between two "%" is stored as expandable; a number as a plain one. Of a type that cannot
    /// be written the section is made and nothing stored.
    [[nodiscard]] RegistryResult<> SetValue(const QVariant& value);

    /// Names of the section's values, of its sections; none if it is not there.
    std::optional<QStringList> EnumerateValues();
    std::optional<QStringList> EnumerateSections();

    [[nodiscard]] RegistryResult<> CreateEXEAssociation(const ExeAssociation& type);

    /// Further verbs of a class that is there.
    [[nodiscard]] RegistryResult<> CreateAdditionalEXEAssociations(const QString& className,
                                                                   const std::vector<ExeVerb>& verbs);

private:
    std::optional<QStringList> Way() const;
    RegistryResult<> SetClassValue(const QString& text);
    RegistryResult<> SetVerb(const QString& section, const QString& text, const QString& command);
    RegistryResult<> Together(const std::function<RegistryResult<>()>& writes);
    QString Position() const;
    RegistryResult<> WriteFailed(const QString& value, Failure why) const;
    static tl::unexpected<RegistryError> Raise(const QString& text, Failure why = {});

    RegistryStore& store;
};
