#pragma once

#include <QComboBox>

/// cmbFind, the search box on the tool bars. Its list is the search history; Enter or a pick searches forward in the
/// current pane.
class FindBox : public QComboBox
{
    Q_OBJECT

public:
    explicit FindBox(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Refill();
};
