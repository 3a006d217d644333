#include "services/registry_tree.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr qsizetype LongestKeyName = 255, LongestValueName = 16383;
constexpr qsizetype MostLevels = 200; ///< far from what the reader of JSON takes

constexpr QLatin1StringView KeysField("keys"), ValuesField("values"), TypeField("type"), DataField("data");

bool IsText(quint32 type)
{
    return type == 1 || type == 2 || type == 7;
}

bool IsNumber(quint32 type)
{
    return type == 4 || type == 5;
}

QJsonObject Written(const RegistryEntry& entry)
{
    QJsonObject object;
    object.insert(TypeField, qint64(entry.Type));
    if (const auto* const text = std::get_if<QString>(&entry.Data))
        object.insert(DataField, *text);
    else if (const auto* const number = std::get_if<qint32>(&entry.Data))
        object.insert(DataField, *number);
    else
        object.insert(DataField, QString::fromLatin1(std::get<QByteArray>(entry.Data).toBase64()));
    return object;
}

QJsonObject Written(const RegistryKey& key)
{
    QJsonObject values, keys, object;
    for (const auto& [folded, value] : key.Values)
        values.insert(value.Name, Written(value.Entry));
    for (const auto& [folded, inner] : key.Keys)
        keys.insert(inner.Name, Written(inner));
    if (!values.isEmpty())
        object.insert(ValuesField, values);
    if (!keys.isEmpty())
        object.insert(KeysField, keys);
    return object;
}

std::optional<RegistryEntry> EntryFrom(const QJsonValue& value)
{
    const QJsonValue data = value[DataField];
    const qint64 type = value[TypeField].toInteger(-1);
    if (type < 0 || type > std::numeric_limits<quint32>::max())
        return {};
    RegistryEntry entry{quint32(type), {}};
    if (IsNumber(entry.Type) && data.isDouble())
        entry.Data = qint32(data.toInteger());
    else if (IsText(entry.Type) && data.isString())
        entry.Data = data.toString();
    else if (!IsNumber(entry.Type) && !IsText(entry.Type) && data.isString())
        entry.Data = QByteArray::fromBase64(data.toString().toLatin1());
    else
        return {};
    return entry;
}

bool Take(const QJsonObject& object, RegistryKey& key, QString& why)
{
    const QJsonObject values = object[ValuesField].toObject(), keys = object[KeysField].toObject();
    for (auto value = values.begin(); value != values.end(); ++value) {
        std::optional<RegistryEntry> entry = EntryFrom(*value);
        if (!entry || !key.Set(value.key(), std::move(*entry))) {
            why = key.Name + QLatin1Char('\\') + value.key();
            return false;
        }
    }
    for (auto inner = keys.begin(); inner != keys.end(); ++inner) {
        RegistryKey* const made = key.Make({inner.key()});
        if (!made || !inner->isObject()) {
            why = inner.key();
            return false;
        }
        if (!Take(inner->toObject(), *made, why))
            return false;
    }
    return true;
}

} // namespace

const RegistryKey* RegistryKey::Find(const QStringList& way) const
{
    const RegistryKey* key = this;
    for (const QString& name : way) {
        const auto next = key->Keys.find(name.toCaseFolded());
        if (next == key->Keys.end())
            return nullptr;
        key = &next->second;
    }
    return key;
}

RegistryKey* RegistryKey::Find(const QStringList& way)
{
    return const_cast<RegistryKey*>(std::as_const(*this).Find(way));
}

RegistryKey* RegistryKey::Make(const QStringList& way)
{
    const bool fits = std::all_of(way.begin(), way.end(),
                                  [](const QString& name) { return !name.isEmpty() && name.size() <= LongestKeyName; });
    if (!fits || way.size() > MostLevels)
        return nullptr;
    RegistryKey* key = this;
    for (const QString& name : way) {
        key = &key->Keys[name.toCaseFolded()];
        if (key->Name.isEmpty())
            key->Name = name;
    }
    return key;
}

const RegistryEntry* RegistryKey::Value(const QString& name) const
{
    const auto found = Values.find(name.toCaseFolded());
    return found == Values.end() ? nullptr : &found->second.Entry;
}

bool RegistryKey::Set(const QString& name, RegistryEntry entry)
{
    if (name.size() > LongestValueName)
        return false;
    const auto [place, isNew] = Values.try_emplace(name.toCaseFolded());
    if (isNew)
        place->second.Name = name;
    place->second.Entry = std::move(entry);
    return true;
}

bool RegistryKey::RemoveValue(const QString& name)
{
    return Values.erase(name.toCaseFolded()) > 0;
}

bool RegistryKey::RemoveKey(const QString& name)
{
    const auto found = Keys.find(name.toCaseFolded());
    if (found == Keys.end() || !found->second.Keys.empty())
        return false;
    Keys.erase(found);
    return true;
}

QByteArray JsonOf(const RegistryKey& root)
{
    return QJsonDocument(Written(root)).toJson();
}

std::optional<RegistryKey> RegistryFrom(const QByteArray& json, QString& why)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    RegistryKey root;
    if (error.error != QJsonParseError::NoError)
        why = error.errorString() + QStringLiteral(" (%1)").arg(error.offset);
    else if (document.isObject() && Take(document.object(), root, why))
        return root;
    return {};
}
