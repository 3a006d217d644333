#include "frame/settings/shortcuts.h"

#include "frame/settings/settings.h"
#include "platform/files/ini_file.h"

#include <algorithm>

namespace {

const QString ShortcutSection = QStringLiteral("Shortcuts");
constexpr QLatin1StringView NoKeys("none"); // an empty value would read as a key that somebody began to write

/// A letter, a digit, a blank or a caret key is text or a move, unless it comes with Ctrl, Alt or Meta.
bool IsTextKey(QKeyCombination key)
{
    if (key.keyboardModifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    const int code = key.key();
    const bool function = code >= Qt::Key_F1 && code <= Qt::Key_F35;
    const bool media = code >= Qt::Key_Back && code < Qt::Key_unknown;
    return !function && !media;
}

void AddRow(QString& page, const ShortcutEntry& entry)
{
    QStringList keys;
    for (const QKeySequence& key : entry.Keys)
        keys << key.toString(QKeySequence::NativeText).toHtmlEscaped();
    page += QStringLiteral("<tr><td>%1</td><td>%2</td></tr>\n")
                .arg(entry.Caption.toHtmlEscaped(), keys.join(QStringLiteral(", ")));
}

} // namespace

QList<QKeySequence> KeysOfText(const QString& text)
{
    QList<QKeySequence> keys;
    for (const QKeySequence& key : QKeySequence::listFromString(text, QKeySequence::PortableText))
        if (!key.isEmpty() && key[0].key() != Qt::Key_unknown)
            keys << key;
    return keys;
}

QString TextOfKeys(const QList<QKeySequence>& keys)
{
    return QKeySequence::listToString(keys, QKeySequence::PortableText);
}

QList<QKeySequence> KeysInForce(const QString& id, const QList<QKeySequence>& shipped)
{
    const QString stored = ReadIni(ShortcutSection, id);
    if (stored == IniFile::NotFound)
        return shipped;
    return stored == NoKeys ? QList<QKeySequence>() : KeysOfText(stored);
}

ShortcutTable::ShortcutTable(std::vector<ShortcutEntry> all, std::vector<FixedKey> taken)
    : entries(std::move(all)), fixed(std::move(taken))
{
    for (ShortcutEntry& entry : entries)
        entry.Keys = KeysInForce(entry.Id, entry.Shipped);
}

QString ShortcutTable::WhyNot(const QKeySequence& key) const
{
    if (key.isEmpty() || IsTextKey(key[0]))
        return QStringLiteral("This key belongs to the text. Hold Ctrl or Alt with it, or take a function key.");
    const auto taken = std::ranges::find(fixed, key, &FixedKey::Key);
    return taken == fixed.end() ? QString() : QStringLiteral("This key is fixed: %1.").arg(taken->Meaning);
}

std::optional<size_t> ShortcutTable::OwnerOf(const QKeySequence& key) const
{
    const auto owner =
        std::ranges::find_if(entries, [&](const ShortcutEntry& entry) { return entry.Keys.contains(key); });
    if (owner == entries.end())
        return {};
    return size_t(owner - entries.begin());
}

void ShortcutTable::Give(size_t entry, const QKeySequence& key, bool asFirst)
{
    for (ShortcutEntry& other : entries)
        other.Keys.removeAll(key);
    QList<QKeySequence>& keys = entries[entry].Keys;
    keys.insert(asFirst ? 0 : keys.size(), key);
}

void ShortcutTable::Take(size_t entry, const QKeySequence& key)
{
    entries[entry].Keys.removeAll(key);
}

void ShortcutTable::Reset(size_t entry)
{
    entries[entry].Keys.clear();
    for (const QKeySequence& key : entries[entry].Shipped)
        Give(entry, key, false);
}

void ShortcutTable::ResetAll()
{
    for (ShortcutEntry& entry : entries)
        entry.Keys = entry.Shipped;
}

void ShortcutTable::Store() const
{
    QString items;
    for (size_t i = 0; i < entries.size(); ++i) {
        if (IsShipped(i))
            continue;
        const QString keys = entries[i].Keys.isEmpty() ? QString(NoKeys) : TextOfKeys(entries[i].Keys);
        items += entries[i].Id + u'=' + keys + QChar(0);
    }
    WriteSection(ShortcutSection, items);
}

QByteArray ShortcutTable::Printable() const
{
    QString page = QStringLiteral("<!DOCTYPE html>\n<html lang=\"en\">\n<head><meta charset=\"utf-8\">"
                                  "<title>Keys of Gemforge</title>\n<style>\n"
                                  "body { font-family: sans-serif; columns: 2; }\n"
                                  "h1 { column-span: all; } table { break-inside: avoid; }\n"
                                  "td { padding: 1px 12px 1px 0; } td + td { font-weight: bold; }\n"
                                  "</style></head>\n<body>\n<h1>Keys of Gemforge</h1>\n");
    QString group;
    for (const ShortcutEntry& entry : entries) {
        if (entry.Keys.isEmpty())
            continue;
        if (entry.Group != group) {
            page += group.isEmpty() ? QString() : QStringLiteral("</table>\n");
            group = entry.Group;
            page += QStringLiteral("<h2>%1</h2>\n<table>\n").arg(group.toHtmlEscaped());
        }
        AddRow(page, entry);
    }
    page += group.isEmpty() ? QString() : QStringLiteral("</table>\n");
    page += QStringLiteral("<h2>Always</h2>\n<table>\n");
    for (const FixedKey& key : fixed)
        AddRow(page, {{}, {}, key.Meaning, {}, {key.Key}});
    return (page + QStringLiteral("</table>\n</body>\n</html>\n")).toUtf8();
}
