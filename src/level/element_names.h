#pragma once

#include <QByteArrayView>
#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>

/// The names of the elements that cells of a map can be, and what mapele.ini says of them. A section line, a line with
/// the highest number and then a line a number, from 0 on: the place of a line is the element's number.
class ElementNames
{
public:
    ElementNames() = default;
    explicit ElementNames(QByteArrayView ini);

    int Highest() const { return highest; }                        ///< as the file says
    const QStringList& All() const { return names; }               ///< by number
    QString Name(int number) const { return names.value(number); } ///< empty outside

    /// What stands behind "=" in the line of a name; "." and "_" are alike in names, letter case does not count.
    std::optional<QString> Value(const QString& name) const;

    /// The number of a name, told apart as in Value; nothing if there is none.
    std::optional<int> Number(const QString& name) const;

private:
    static QString Key(const QString& name);

    int highest = 0;
    QStringList names;
    QHash<QString, QString> values;
    QHash<QString, int> numbers;
};

/// Those of the program's table, read when first asked for.
const ElementNames& NamesOfElements();
