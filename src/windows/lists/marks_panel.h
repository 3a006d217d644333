#pragma once

#include "conf/line_hints.h"
#include "windows/parts/lower_list.h"

#include <QAbstractTableModel>
#include <QTimer>

/// The marks of the current document, a row each: line, key, what is to be said of it.
class LineMarksModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { LineColumn, KeyColumn, MessageColumn, ColumnCount };
    using QAbstractTableModel::QAbstractTableModel;

    void Show(std::vector<LineHint> now);
    const LineHint* At(int row) const; ///< null outside

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<LineHint> rows;
    QStringList keys;
};

/// "List Of Marks": below the text; a click or Enter leads to the line, a double click puts in the word that was
/// probably meant. Follows the document while it shows.
class MarksPanel : public LowerList
{
    Q_OBJECT

public:
    explicit MarksPanel(QWidget* parent = nullptr);

    void ShowList() override;
    void DocumentChanged(); ///< another text, or the text has changed

private:
    void Look();
    void GoTo(int row);
    void PutWordIn(int row);

    LineMarksModel model;
    QTimer soon;
};
