#pragma once

#include <QLayout>
#include <memory>
#include <vector>

/// Frames in as many columns of one width as there is room for, filled one after the other and as evenly as may be. In
/// a narrow window they stand in one column, below each other.
class FrameColumns : public QLayout
{
public:
    explicit FrameColumns(QWidget* parent);
    ~FrameColumns() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return int(items.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    QSize sizeHint() const override; ///< with WishedColumns
    QSize minimumSize() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    void setGeometry(const QRect& place) override;

    int WishedColumns = 3;

private:
    struct Plan
    {
        std::vector<int> FirstOfColumn; ///< index of each column's first item
        int ColumnWidth = 0, Height = 0;
    };
    int Gap() const;
    int WidestItem() const;
    int HeightOf(int item, int width) const;
    Plan PlanFor(int width) const;
    Plan PlanWith(int columns, int columnWidth) const;

    std::vector<std::unique_ptr<QLayoutItem>> items;
};
