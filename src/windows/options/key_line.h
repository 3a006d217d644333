#pragma once

#include <QKeySequence>
#include <QLineEdit>

/// A line that takes one key with its modifiers. Tab, Shift+Tab and Esc do what they do everywhere; Backspace empties
/// it.
class KeyLine : public QLineEdit
{
    Q_OBJECT

public:
    KeyLine(const QString& name, const QString& hint, QWidget* parent);

    QKeySequence Key() const { return key; }
    void SetKey(const QKeySequence& wanted);

signals:
    void KeyChanged(const QKeySequence& key);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QKeySequence key;
};
