#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

struct SettingRow;
struct SettingsRecord;

/// Reads settings as numbers. A key that is missing or no number takes the value that the program was shipped with,
/// and is noted.
class SettingsReader
{
public:
    /// Puts the value of a setting into its place in a record.
    void Read(const SettingRow& row, SettingsRecord& record);
    int Number(const SettingRow& row);

    /// The value that the program is shipped with; null if there is none.
    QString Shipped(const QString& section, const QString& key);

    /// Out of bounds: the nearer bound.
    int Number(const QString& section, const QString& key, int low, int high);
    int Flag(const QString& section, const QString& key) { return Number(section, key, 0, 1); }
    double Real(const QString& section, const QString& key);
    bool Truth(const QString& section, const QString& key); ///< "True", "False", 1 or 0
    /// A text; a missing key takes the shipped one too, without a note.
    QString Text(const QString& section, const QString& key);

    /// Puts every shipped value that was taken into user.ini, so that it is told once only.
    void WriteBack() const;

    const QStringList& Corrected() const { return corrected; } ///< "[section] key"

private:
    QString Correct(const QString& section, const QString& key);
    QString Take(const QString& section, const QString& key);

    struct Fix
    {
        QString Section, Key, Value;
    };
    QHash<QString, QString> shipped; ///< filled when first needed
    QList<Fix> fixes;
    QStringList corrected;
};
