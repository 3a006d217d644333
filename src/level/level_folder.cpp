#include "level/level_folder.h"

#include "frame/media/media_lists.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

Result<QStringList> LevelsIn(const QString& folder)
{
    const QDir levels(folder);
    if (!levels.exists())
        return Fail(folder, qt_error_string(QFileInfo::exists(folder) ? ENOTDIR : ENOENT));
    if (!levels.isReadable())
        return Fail(folder, qt_error_string(EACCES));
    QStringList names = levels.entryList({QStringLiteral("*.level")}, QDir::Files | QDir::Hidden);
    std::sort(names.begin(), names.end(), NaturallyBefore);
    return names;
}

QString LevelNumber(const QString& fileName)
{
    const QString base = QFileInfo(fileName).completeBaseName();
    bool isNumber = false;
    const uint number = base.toUInt(&isNumber);
    return isNumber ? QString::number(number) : base;
}
