#pragma once

#include "frame/messages/asker.h"

#include <QDialog>
#include <QTimer>

class QLabel;

/// A small window above all others that waits for a click, or for a time; Esc stops the macro. The text "pausemouse"
/// shows the mouse.
class frmMacroPause : public QDialog
{
    Q_OBJECT

public:
    frmMacroPause(const PauseQuestion& question, QWidget* parent);

    static Answer Ask(const PauseQuestion& question, QWidget* parent);

    QLabel* lblMessage() const { return message; }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Blink();
    void ShowMouse();

    QLabel* message;
    QTimer Timer1, tmpPause, tmrMouse;
    bool white = false;
};
