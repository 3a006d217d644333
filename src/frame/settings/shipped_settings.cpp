#include "frame/settings/shipped_settings.h"

#include "frame/frame_state.h"
#include "frame/settings/settings_table.h"
#include "platform/files/ini_file.h"
#include "platform/files/paths.h"

#include <QFile>
#include <QLocale>
#include <algorithm>
#include <cmath>

// A resource of a static library is linked only if somebody asks for it, outside of every namespace.
static void LinkShippedSettings()
{
    Q_INIT_RESOURCE(shipped);
}

namespace {

/// Keys that came later than their section: a file without them is older, not broken.
constexpr QLatin1StringView LaterKeys[] = {QLatin1StringView("AskBeforeMacros"), QLatin1StringView("LineHints"),
                                           QLatin1StringView("Thumbnails"), QLatin1StringView("ScreenReader"),
                                           QLatin1StringView("ColourForm")};

QString Place(const QString& section, const QString& key)
{
    return section.toLower() + u'\n' + key.toLower();
}

/// The shipped text has no oddities: sections, key=value, comment lines.
QHash<QString, QString> ReadShipped()
{
    LinkShippedSettings();
    QHash<QString, QString> values;
    QFile file(QStringLiteral(":/shipped/user.ini"));
    if (!file.open(QIODevice::ReadOnly))
        return values;
    QString section;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        const qsizetype equals = line.indexOf(u'=');
        if (line.startsWith(u'[') && line.endsWith(u']'))
            section = line.mid(1, line.size() - 2);
        else if (!line.startsWith(u';') && !line.startsWith(u'#') && equals > 0)
            values.insert(Place(section, line.left(equals).trimmed()), line.mid(equals + 1).trimmed());
    }
    return values;
}

} // namespace

void SettingsReader::Read(const SettingRow& row, SettingsRecord& record)
{
    const QString section = QString::fromLatin1(row.Section), key = QString::fromLatin1(row.Key);
    const SettingPlace place = row.Place(record);
    if (int* const* number = std::get_if<int*>(&place))
        **number = Number(section, key, row.Low, row.High);
    else if (double* const* real = std::get_if<double*>(&place))
        **real = Real(section, key);
    else if (bool* const* truth = std::get_if<bool*>(&place))
        **truth = Truth(section, key);
    else
        *std::get<QString*>(place) =
            row.Kind == SettingKind::Path ? paths::Inside(Text(section, key)) : Text(section, key);
}

int SettingsReader::Number(const SettingRow& row)
{
    return Number(QString::fromLatin1(row.Section), QString::fromLatin1(row.Key), row.Low, row.High);
}

QString SettingsReader::Shipped(const QString& section, const QString& key)
{
    if (shipped.isEmpty())
        shipped = ReadShipped();
    return shipped.value(Place(section, key));
}

QString SettingsReader::Correct(const QString& section, const QString& key)
{
    const bool newer = ReadSection(section).isEmpty() ||
                       (ReadIni(section, key) == IniFile::NotFound &&
                        std::find(std::begin(LaterKeys), std::end(LaterKeys), key) != std::end(LaterKeys));
    const QString told = u'[' + section + QStringLiteral("] ") + key;
    if (!newer && !corrected.contains(told))
        corrected << told;
    return Take(section, key);
}

QString SettingsReader::Take(const QString& section, const QString& key)
{
    const QString value = Shipped(section, key);
    if (!value.isNull())
        fixes.push_back({section, key, value});
    return value;
}

void SettingsReader::WriteBack() const
{
    if (fixes.isEmpty())
        return;
    const SettingsBatch batch;
    for (const Fix& fix : fixes)
        WriteIni(fix.Value, fix.Section, fix.Key);
}

int SettingsReader::Number(const QString& section, const QString& key, int low, int high)
{
    bool isNumber = false;
    qlonglong value = ReadIni(section, key).trimmed().toLongLong(&isNumber);
    if (!isNumber)
        value = Correct(section, key).toLongLong();
    return int(std::clamp<qlonglong>(value, low, high));
}

double SettingsReader::Real(const QString& section, const QString& key)
{
    bool isNumber = false;
    const double value = QLocale::c().toDouble(ReadIni(section, key).trimmed(), &isNumber);
    return isNumber && std::isfinite(value) ? value : QLocale::c().toDouble(Correct(section, key));
}

bool SettingsReader::Truth(const QString& section, const QString& key)
{
    const auto isOneOf = [](const QString& text, QLatin1StringView word, QLatin1StringView digit) {
        return text.compare(word, Qt::CaseInsensitive) == 0 || text == digit;
    };
    const QLatin1StringView yes("True"), one("1");
    const QString text = ReadIni(section, key).trimmed();
    if (isOneOf(text, yes, one) || isOneOf(text, QLatin1StringView("False"), QLatin1StringView("0")))
        return isOneOf(text, yes, one);
    return isOneOf(Correct(section, key), yes, one);
}

QString SettingsReader::Text(const QString& section, const QString& key)
{
    const QString text = ReadIni(section, key);
    return text == IniFile::NotFound ? Take(section, key) : text;
}
