#include "frame/ini_store.h"

#include "frame/frame_state.h"
#include "platform/paths.h"

#include <utility>

namespace {

const QString UserFile = QStringLiteral("user");

/// Where the item of a key starts in a raw section; -1 if it has none.
qsizetype FindItem(const QString& items, const QString& key)
{
    for (qsizetype at = 0; at < items.size();) {
        qsizetype end = items.indexOf(QChar(0), at);
        if (end < 0)
            end = items.size();
        const QStringView item = QStringView(items).mid(at, end - at);
        const qsizetype equals = item.indexOf(u'=');
        if (equals >= 0 && item.left(equals).trimmed().compare(key, Qt::CaseInsensitive) == 0)
            return at;
        at = end + 1;
    }
    return -1;
}

qsizetype ItemEnd(const QString& items, qsizetype at)
{
    const qsizetype end = items.indexOf(QChar(0), at);
    return end < 0 ? items.size() : end;
}

IniStore& Store()
{
    if (!Frame.Ini || Frame.Ini->Folder() != Frame.DataFolder)
        Frame.Ini = std::make_shared<IniStore>(Frame.DataFolder, Frame.SettingsReadOnly);
    return *Frame.Ini;
}

/// A failed write is told once a run; the value is held in memory.
void Tell(const Result<>& outcome)
{
    IniStore& store = Store();
    if (outcome || store.FailureTold)
        return;
    store.FailureTold = true;
    ShowMessage(MessageFolderReadOnly, outcome.error().Text());
}

} // namespace

QString ItemValue(const QString& items, const QString& key)
{
    const qsizetype at = FindItem(items, key);
    if (at < 0)
        return IniFile::NotFound;
    const qsizetype value = items.indexOf(u'=', at) + 1;
    return items.mid(value, ItemEnd(items, at) - value);
}

QString WithItem(const QString& items, const QString& key, const QString& value)
{
    const QString item = key + u'=' + value;
    const qsizetype at = FindItem(items, key);
    if (at < 0)
        return items + item + QChar(0);
    return items.left(at) + item + QChar(0) + items.mid(ItemEnd(items, at) + 1);
}

QString WithoutItem(const QString& items, const QString& key)
{
    const qsizetype at = FindItem(items, key);
    return at < 0 ? items : items.left(at) + items.mid(ItemEnd(items, at) + 1);
}

QString NumberedItems(const QStringList& values)
{
    QString items;
    for (qsizetype i = 0; i < values.size(); ++i)
        items += QString::number(i + 1) + u'=' + values[i] + QChar(0);
    return items;
}

IniFile& IniStore::File(const QString& baseName)
{
    const auto found = files.find(baseName);
    if (found != files.end())
        return found->second;
    return files.emplace(baseName, IniFile(folder + baseName + QStringLiteral(".ini"))).first->second;
}

QString IniStore::Read(const QString& baseName, const QString& section, const QString& key)
{
    const QString name = section.toLower();
    if (baseName == UserFile && held.contains(name))
        return ItemValue(held.value(name), key);
    return File(baseName).Read(section, key);
}

QString IniStore::Section(const QString& section)
{
    const QString name = section.toLower();
    return held.contains(name) ? held.value(name) : File(UserFile).ReadSection(section);
}

Result<> IniStore::Write(const QString& section, const QString& key, const QString& value)
{
    return Put({section, key, value}, WithItem(Section(section), key, value));
}

Result<> IniStore::WriteSection(const QString& section, const QString& items)
{
    return Put({section, {}, items}, items);
}

Result<> IniStore::CloseBatch()
{
    return --batches == 0 && !changes.empty() ? Flush() : Result<>{};
}

Result<> IniStore::Put(Change change, const QString& items)
{
    held[change.Section.toLower()] = items;
    changes.push_back(std::move(change));
    return batches == 0 ? Flush() : Result<>{};
}

Result<> IniStore::Flush()
{
    const std::vector<Change> now = std::exchange(changes, {});
    Result<> outcome = Fail(paths::Native(folder), QStringLiteral("The folder can not be written."));
    if (!readOnly) {
        IniFile& file = File(UserFile);
        Result<> each;
        file.OpenBatch();
        for (const Change& change : now) {
            const QString name = change.Section.toLower();
            const bool whole = change.Key.isEmpty() || failed.contains(name);
            const Result<> done = whole ? file.WriteSection(change.Section, held.value(name))
                                        : file.Write(change.Section, change.Key, change.Value);
            if (!done)
                each = done;
        }
        outcome = file.CloseBatch();
        if (outcome && !each)
            outcome = each;
    }
    for (const Change& change : now) {
        const QString name = change.Section.toLower();
        if (outcome) {
            held.remove(name);
            failed.remove(name);
        } else {
            failed.insert(name);
        }
    }
    return outcome;
}

QString ReadIni(const QString& section, const QString& key, const QString& baseName)
{
    return Store().Read(baseName, section, key);
}

void WriteIni(const QString& value, const QString& section, const QString& key)
{
    Tell(Store().Write(section, key, value));
}

void WriteIni(int value, const QString& section, const QString& key)
{
    WriteIni(QString::number(value), section, key);
}

QString ReadSection(const QString& section)
{
    return Store().Section(section);
}

void WriteSection(const QString& section, const QString& items)
{
    Tell(Store().WriteSection(section, items));
}

SettingsBatch::SettingsBatch()
{
    Store().OpenBatch();
}

SettingsBatch::~SettingsBatch()
{
    Tell(Store().CloseBatch());
}
