#pragma once

#include "platform/ini_file.h"

#include <QHash>
#include <QSet>
#include <map>
#include <vector>

/// The ini files of the data folder as ReadIni and its like see them. A section of user.ini that is not written yet
/// (a batch is open) or could not be written is held here and rules until a later write of it succeeds.
class IniStore
{
public:
    IniStore(QString folder, bool readOnly) : folder(std::move(folder)), readOnly(readOnly) {}

    QString Read(const QString& baseName, const QString& section, const QString& key);
    QString Section(const QString& section);

    [[nodiscard]] Result<> Write(const QString& section, const QString& key, const QString& value);
    [[nodiscard]] Result<> WriteSection(const QString& section, const QString& items);

    void OpenBatch() { ++batches; }
    [[nodiscard]] Result<> CloseBatch();

    const QString& Folder() const { return folder; }

    bool FailureTold = false; ///< a write has failed in this run and the user knows

private:
    struct Change
    {
        QString Section, Key, Value; ///< no key: Value is the whole section
    };
    IniFile& File(const QString& baseName);
    Result<> Put(Change change, const QString& items);
    Result<> Flush();

    QString folder;
    bool readOnly;
    std::map<QString, IniFile> files;
    QHash<QString, QString> held; ///< lower-case section name -> items
    QSet<QString> failed;         ///< of these the file misses more than the latest change
    std::vector<Change> changes;
    int batches = 0;
};

/// Items of a raw section: key=value, each ended by a character 0.
QString ItemValue(const QString& items, const QString& key); ///< IniFile::NotFound if there is none
QString WithItem(const QString& items, const QString& key, const QString& value);
QString WithoutItem(const QString& items, const QString& key);

/// Items with the keys "1", "2", ...
QString NumberedItems(const QStringList& values);
