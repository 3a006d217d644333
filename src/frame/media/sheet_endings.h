#pragma once

#include <QByteArrayView>
#include <QStringList>

/// The endings of tile sheets, lower case, without dot. A sheet that is missing may be there with another of them, as
/// the game takes it.
class SheetEndings
{
public:
    SheetEndings() = default;
    SheetEndings(QStringList endings);
    SheetEndings(std::initializer_list<QString> endings) : SheetEndings(QStringList(endings)) {}

    const QStringList& Words() const { return words; }

    /// Place in Words of the ending that a name has, case ignored; -1 for none.
    int Of(const QString& name) const;

    /// The same sheet with each other ending; empty for a name that has none.
    QStringList Twins(const QString& name) const;

    /// Does `value` stand for the file `name`: the beginning of it, or of a twin, case ignored?
    bool StandsFor(const QString& value, const QString& name) const;

    /// As the patterns of a file list: "*.pcx;*.png".
    QString Patterns() const;

    friend bool operator==(const SheetEndings& a, const SheetEndings& b) { return a.words == b.words; }

private:
    friend bool HasSheetName(QByteArrayView line, const SheetEndings& endings);

    QStringList words;
    QList<QByteArray> bytes;
};

/// Does a conf line name a tile sheet: a dot and one of the endings, anywhere, case ignored?
bool HasSheetName(QStringView line, const SheetEndings& endings);
bool HasSheetName(QByteArrayView line, const SheetEndings& endings);
