#pragma once

#include <QLineEdit>

/// A text box that is red while its text is not yet taken: Enter, or leaving the box, takes it.
class ApplyField : public QLineEdit
{
    Q_OBJECT

public:
    enum class Takes { Digits, Text };

    ApplyField(Takes takes, QWidget* parent);

    /// A text that counts as taken.
    void Show(const QString& text);

signals:
    void Applied(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void Apply();
    void SetWaiting(bool on);

    Takes takes;
    bool waiting = false;
};
