#pragma once

#include <QString>

struct RecentEntry
{
    QString Text, Path;
    int Icon = 1; ///< image of the list `recent`
};

void RecentLoad();
void RecentAdd(const QString& path);
QString RecentDisplayName(const QString& path, bool shortName);
/// Opens an entry of Frame.Recent; one whose file has gone is removed and told (message 6).
void RecentOpenSelected(int index);
void ShowRecentList();
