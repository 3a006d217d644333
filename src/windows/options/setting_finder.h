#pragma once

#include <QLineEdit>

class FoundSettings;
class QCompleter;
class QStandardItemModel;

/// Finds settings: offers those that hold all the words typed, and tells which one is chosen.
class SettingFinder : public QLineEdit
{
    Q_OBJECT

public:
    explicit SettingFinder(QWidget* parent);

    /// One more to find: what is shown, and words that it is found by too.
    void Add(const QString& shown, const QString& words);

    /// Those that are found with what is typed, as they are shown.
    QStringList Found() const;

signals:
    void Chosen(int number); ///< in the order of Add

private:
    void Choose(int number);
    void ChooseFirst();

    QStandardItemModel* all;
    FoundSettings* found;
    QCompleter* list;
};
