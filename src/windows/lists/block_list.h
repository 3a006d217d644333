#pragma once

#include "windows/lists/block_model.h"
#include "windows/parts/floating_list.h"

class QLineEdit;

/// "Goto Block": the element blocks of the current document, over the right third of the pane, narrowed by typing. A
/// pick puts the caret on the block's main line.
class BlockList : public FloatingList
{
    Q_OBJECT

public:
    explicit BlockList(QWidget* parent);

    /// `paneArea` in the parent's coordinates. A document without blocks is told in the status bar instead.
    void OpenOver(const QRect& paneArea);

    QLineEdit* Filter() const { return filter; }

protected:
    void Fill() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Narrow(const QString& words);
    void Goto(int row);

    BlockModel model;
    QLineEdit* filter;
};
