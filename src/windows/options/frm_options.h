#pragma once

#include "windows/options/options_ports.h"

#include <QDialog>
#include <functional>
#include <vector>

class OptionPage;
class QTabWidget;
class SettingFinder;

/// "Gemforge - Options": the one place where the user changes the settings, a page a subject, with a search over all.
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
    void Turn(int step);

    SettingFinder* finder;
    QTabWidget* tabs;
    std::vector<std::function<void()>> ways; ///< to what the finder finds
};

/// Opens the window; returns when it has closed.
void RunOptionsWindow(const OptionsPorts& ports, QWidget* owner);
