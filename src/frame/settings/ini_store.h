#pragma once

#include "platform/files/ini_file.h"

#include <map>

/// The ini files of the data folder, opened when first read. What user.ini can not take still reads as written.
class IniStore
{
public:
    /// Nothing of a store that is read only reaches the disk.
    IniStore(QString dataFolder, bool isReadOnly);

    IniFile& File(const QString& baseName);
    IniFile& User() { return File(QStringLiteral("user")); }

    /// The outcome of a write; a store that is read only has none but failures.
    [[nodiscard]] Result<> Outcome(const Result<>& written);

    const QString& Folder() const { return folder; }
    bool FailureTold = false; ///< a write has failed in this run and the user knows

private:
    QString folder;
    bool readOnly;
    std::map<QString, IniFile> files;
};

/// A raw section without the item of a key: key=value items, each ended by a character 0.
QString WithoutItem(const QString& items, const QString& key);

/// Items with the keys "1", "2", ...
QString NumberedItems(const QStringList& values);
