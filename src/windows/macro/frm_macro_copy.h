#pragma once

#include "macro/macro_ports.h"

#include <QDialog>

class SideBySide;
class QPushButton;

/// What a macro has done to the copy of a text, before and after beside each other: to be taken or dropped.
class frmMacroCopy : public QDialog
{
    Q_OBJECT

public:
    frmMacroCopy(const MacroChanges& changes, QWidget* parent);

    /// True if the changes are to be taken.
    static bool Ask(const MacroChanges& changes, QWidget* parent);

    SideBySide* Comparison() const { return comparison; }
    QPushButton* cmdTake() const { return take; }

private:
    SideBySide* comparison;
    QPushButton* take;
};
