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
    // The line inside passes focus and keys on to the box.
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Refill();
    void DimPlaceholder();
};
