#pragma once

#include "windows/options/option_page.h"

#include <vector>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
struct SettingRow;

/// "More Options": the view, and what has no place on the pages before; the file types of the desktop can be taken
/// back here.
class MorePage : public OptionPage
{
    Q_OBJECT

public:
    MorePage(int index, QWidget* parent);

    void Apply() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QGroupBox* MakeEditor(QWidget* parent);
    QGroupBox* MakeScreenReader(QWidget* parent);
    QGroupBox* MakeFileTypes(QWidget* parent);
    void ChooseEditor();
    void ShowFileTypes();
    void TakeBackFileTypes();

    std::vector<std::pair<QCheckBox*, const SettingRow*>> ticks;
    QLineEdit* txtImageEditor;
    QComboBox* cmbScreenReader;
    QLabel* lblFileTypes;
    QPushButton* cmdUndoFileTypes;
};
