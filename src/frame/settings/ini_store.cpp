#include "frame/settings/ini_store.h"

#include "frame/frame_state.h"
#include "platform/files/paths.h"

namespace {

IniStore& Store()
{
    if (!Frame.Ini || Frame.Ini->Folder() != Frame.DataFolder)
        Frame.Ini = std::make_shared<IniStore>(Frame.DataFolder, Frame.SettingsReadOnly || Frame.DataFolder.isEmpty());
    return *Frame.Ini;
}

/// A failed write is told once a run; the value is held in memory.
void Tell(const Result<>& written)
{
    const Result<> outcome = Store().Outcome(written);
    if (!outcome && !std::exchange(Store().FailureTold, true))
        ShowMessage(message::SettingsNotSaved, outcome.error().Text());
}

} // namespace

IniStore::IniStore(QString dataFolder, bool isReadOnly) : folder(std::move(dataFolder)), readOnly(isReadOnly)
{
    if (readOnly)
        User().OpenBatch(); // never closed, so that all changes stay in memory
}

IniFile& IniStore::File(const QString& baseName)
{
    const auto found = files.find(baseName);
    if (found != files.end())
        return found->second;
    return files.emplace(baseName, IniFile(folder + baseName + QStringLiteral(".ini"))).first->second;
}

Result<> IniStore::Outcome(const Result<>& written)
{
    return readOnly ? Fail(paths::Native(User().Path()), QStringLiteral("The file can not be written.")) : written;
}

QString WithoutItem(const QString& items, const QString& key)
{
    QString rest;
    for (const QString& item : items.split(QChar(0), Qt::SkipEmptyParts))
        if (item.section(u'=', 0, 0).trimmed().compare(key, Qt::CaseInsensitive) != 0)
            rest += item + QChar(0);
    return rest;
}

QString NumberedItems(const QStringList& values)
{
    QString items;
    for (qsizetype i = 0; i < values.size(); ++i)
        items += QString::number(i + 1) + u'=' + values[i] + QChar(0);
    return items;
}

QString ReadIni(const QString& section, const QString& key, const QString& baseName)
{
    return Store().File(baseName).Read(section, key);
}

void WriteIni(const QString& value, const QString& section, const QString& key)
{
    Tell(Store().User().Write(section, key, value));
}

void WriteIni(int value, const QString& section, const QString& key)
{
    WriteIni(QString::number(value), section, key);
}

QString ReadSection(const QString& section)
{
    return Store().User().ReadSection(section);
}

void WriteSection(const QString& section, const QString& items)
{
    Tell(Store().User().WriteSection(section, items));
}

SettingsBatch::SettingsBatch()
{
    Store().User().OpenBatch();
}

SettingsBatch::~SettingsBatch()
{
    Tell(Store().User().CloseBatch());
}
