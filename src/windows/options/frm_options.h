#pragma once

#include "windows/options/options_ports.h"

#include <QDialog>

class OptionPage;
class QTabWidget;

/// "Gemforge - Options": the one place where the user changes the settings, a page a subject.
class frmOptions : public QDialog
{
    Q_OBJECT

public:
    frmOptions(const OptionsPorts& ports, QWidget* owner);

    QTabWidget* SSTab() const { return tabs; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void AddPage(OptionPage* page);

    QTabWidget* tabs;
};

/// Opens the window; returns when it has closed.
void RunOptionsWindow(const OptionsPorts& ports, QWidget* owner);
