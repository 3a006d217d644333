#pragma once

#include "macro/macro_ports.h"

#include <QDialog>

class QCheckBox;
class QDialogButtonBox;
class QPushButton;

/// Tells what a macro that has not run here yet can do, before it starts for the first time.
class frmMacroNew : public QDialog
{
    Q_OBJECT

public:
    frmMacroNew(const NewMacro& macro, QWidget* parent);

    static NewMacroChoice Ask(const NewMacro& macro, QWidget* parent);

    QPushButton* cmdRun() const { return run; }
    QPushButton* cmdRunOnCopy() const { return runOnCopy; } ///< hidden where a copy cannot hold back what it does
    QCheckBox* chkAskAgain() const { return askAgain; }

private:
    QPushButton* AddButton(QDialogButtonBox& buttons, const char* caption, NewMacroChoice choice);

    QPushButton *run, *runOnCopy;
    QCheckBox* askAgain;
    NewMacroChoice chosen = NewMacroChoice::Cancel;
};

/// A line for each thing that a macro can do.
QStringList PowerLines(int powers);
