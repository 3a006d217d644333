#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <deque>
#include <vector>

/// The text of an ini file as its lines, found by section and key. A line that is not written to keeps its bytes:
/// comments, blank lines, lines that are no entry, a mark at the start, line ends.
class IniText
{
public:
    explicit IniText(QByteArray bytes = {});

    /// Value of the first such key; null if there is none.
    QString Value(const QString& section, const QString& key) const;
    /// All entries of the section, "key=value" and a character 0 each, twice named keys included.
    QString Items(const QString& section) const;

    void Set(const QString& section, const QString& key, const QString& value);
    /// Entries are replaced by `items`, each "key=value" ended by a character 0; what is no entry stays.
    void SetItems(const QString& section, const QString& items);

    QByteArray Bytes() const;

    /// Would this text come back as it is when written? Outer blanks are left aside.
    static bool MayBeSection(const QString& name);
    static bool MayBeKey(const QString& key);
    static bool MayBeValue(const QString& value);

private:
    struct Line
    {
        QByteArrayView Raw; ///< with its line end, in `bytes` or `added`
        qsizetype Equals;   ///< of an entry; -1 for any other line
    };
    struct Block ///< a section's head and the lines behind it; the first block has no head
    {
        QByteArrayView Head;
        std::vector<Line> Lines;
    };
    struct Place
    {
        size_t Block = 0, Line = 0;
    };
    struct Section
    {
        std::vector<size_t> Blocks; ///< more than one if the name stands twice
        QHash<QString, Place> Keys;
    };

    const Place* Find(const QString& section, const QString& key) const;
    void TakeLine(QByteArrayView raw);
    void Index(Section& section);
    Section& SectionToWrite(const QString& name);
    static bool IsEntry(const Line& line);
    static std::vector<Line>::iterator PlaceForNew(std::vector<Line>& lines);
    QByteArrayView Added(const QString& line);
    Line NewEntry(const QString& key, const QString& value);
    void EndLastLine();

    QByteArray bytes;
    std::deque<QByteArray> added;
    QByteArrayView mark; ///< byte order mark
    QByteArray lineEnd = "\n";
    std::vector<Block> blocks;
    QHash<QString, Section> sections;
};
