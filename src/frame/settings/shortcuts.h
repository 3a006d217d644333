#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>
#include <optional>
#include <vector>

/// A command that the user may give keys to.
struct ShortcutEntry
{
    QString Id;    ///< what it is stored as
    QString Group; ///< the menu that it stands in
    QString Caption;
    QList<QKeySequence> Shipped;
    QList<QKeySequence> Keys = {}; ///< in force; a menu names the first
};

/// A key that no command can have.
struct FixedKey
{
    QKeySequence Key;
    QString Meaning;
};

/// The keys of all commands. What differs from what is shipped stands in section `Shortcuts` of user.ini.
class ShortcutTable
{
public:
    /// Takes the stored keys of each entry, else the shipped ones.
    ShortcutTable(std::vector<ShortcutEntry> entries, std::vector<FixedKey> fixed);

    const std::vector<ShortcutEntry>& Entries() const { return entries; }
    bool IsShipped(size_t entry) const { return entries[entry].Keys == entries[entry].Shipped; }

    /// Why no command can have this key; empty if one can.
    QString WhyNot(const QKeySequence& key) const;
    std::optional<size_t> OwnerOf(const QKeySequence& key) const;

    /// Gives a key to an entry, as its last or in front as `asFirst`, and takes it from the entry that had it.
    void Give(size_t entry, const QKeySequence& key, bool asFirst);
    void Take(size_t entry, const QKeySequence& key);
    /// Back to what is shipped; another entry that has one of these keys loses it.
    void Reset(size_t entry);
    void ResetAll();

    void Store() const;

    /// A page for a printer: HTML with a table a group.
    QByteArray Printable() const;

private:
    std::vector<ShortcutEntry> entries;
    std::vector<FixedKey> fixed;
};

/// Keys as the settings and the rows of commands hold them, with "; " between.
QList<QKeySequence> KeysOfText(const QString& text);
QString TextOfKeys(const QList<QKeySequence>& keys);

/// The keys in force of a command.
QList<QKeySequence> KeysInForce(const QString& id, const QList<QKeySequence>& shipped);
