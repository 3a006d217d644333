#pragma once

#include "windows/find/dialog_target.h"

#include <QDialog>

class QLabel;
class QSpinBox;

/// Asks for a line, counted from 1 as the pane's margin counts, and goes there.
class GotoDialog : public QDialog
{
    Q_OBJECT

public:
    explicit GotoDialog(QWidget* owner);

    void Open(EditorPane& pane);
    void accept() override;
    void reject() override;

private:
    DialogTarget target;
    QLabel* lblLine;
    QSpinBox* numLine;
};
