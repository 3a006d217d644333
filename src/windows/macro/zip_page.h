#pragma once

#include <QHash>
#include <QStringList>
#include <QWidget>

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

/// The content of an archive as a tree, and the path of what is chosen in it.
class ZipPage : public QWidget
{
    Q_OBJECT

public:
    ZipPage(const QStringList& entries, QWidget* parent);

    QString Chosen() const; ///< pieces joined with "/", none after the last; empty if nothing is
    QTreeWidget* lstZipTree() const { return tree; }
    QLineEdit* txtZipFile() const { return line; }

signals:
    void Changed();
    void Activated(); ///< double click or Enter

private:
    void AddEntry(const QString& entry);

    QTreeWidget* tree;
    QLineEdit* line;
    QHash<QString, QTreeWidgetItem*> items; ///< by their paths
};
