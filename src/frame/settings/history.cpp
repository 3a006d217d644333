#include "frame/settings/history.h"

#include "frame/frame_state.h"
#include "platform/files/ini_file.h"

namespace {

struct HistoryRow
{
    const char* Section;
    QString EditorGlobals::*List;
    int SettingsRecord::*Limit;
};
constexpr HistoryRow Histories[] = {
    {"Find History", &EditorGlobals::FindMRUList, &SettingsRecord::FindHistoryLimit},
    {"Replace History", &EditorGlobals::ReplaceMRUList, &SettingsRecord::ReplaceHistoryLimit},
};

struct Escape
{
    char16_t Plain, Mark;
};
constexpr Escape Escapes[] = {{u'\\', u'\\'}, {u'\n', u'n'}, {u'\r', u'r'}, {u'\t', u't'}, {u' ', u's'}};

} // namespace

QString EscapedItem(const QString& item)
{
    QString stored;
    for (qsizetype i = 0; i < item.size(); ++i) {
        const bool innerBlank = item[i] == u' ' && i > 0 && i + 1 < item.size();
        const Escape* hit = nullptr;
        for (const Escape& escape : Escapes)
            if (item[i] == escape.Plain && !innerBlank)
                hit = &escape;
        if (hit)
            stored += QStringLiteral("\\") + QChar(hit->Mark);
        else
            stored += item[i];
    }
    return stored;
}

QString UnescapedItem(const QString& stored)
{
    QString item;
    for (qsizetype i = 0; i < stored.size(); ++i) {
        const Escape* hit = nullptr;
        if (stored[i] == u'\\' && i + 1 < stored.size())
            for (const Escape& escape : Escapes)
                if (stored[i + 1] == escape.Mark)
                    hit = &escape;
        if (hit)
            ++i;
        item += hit ? QChar(hit->Plain) : stored[i];
    }
    return item;
}

void LoadHistories()
{
    for (const HistoryRow& row : Histories) {
        const QString section = QString::fromLatin1(row.Section);
        QStringList items;
        for (int i = 1;; ++i) {
            const QString stored = ReadIni(section, QString::number(i));
            if (stored == IniFile::NotFound)
                break;
            items << UnescapedItem(stored);
        }
        if (!items.isEmpty())
            Frame.Globals.*row.List = items.join(u'\n');
    }
}

void SaveHistories()
{
    const SettingsBatch batch;
    for (const HistoryRow& row : Histories) {
        const QString& list = Frame.Globals.*row.List;
        if (list.isEmpty())
            continue;
        const QStringList items = list.split(u'\n');
        for (int i = 0; i < items.size() && i < Frame.Settings.*row.Limit; ++i)
            WriteIni(EscapedItem(items[i]), QString::fromLatin1(row.Section), QString::number(i + 1));
    }
}
