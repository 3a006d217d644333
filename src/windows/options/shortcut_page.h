#pragma once

#include "frame/settings/shortcuts.h"
#include "windows/options/option_page.h"

#include <functional>

class KeyLine;
class QLabel;
class QLineEdit;
class QListWidget;
class QTreeWidget;
class QTreeWidgetItem;

/// "Shortcuts": the keys of every command, found by name or by pressing a key. What is changed waits for Apply.
class ShortcutPage : public OptionPage
{
    Q_OBJECT

public:
    ShortcutPage(int index, ShortcutTable table, QWidget* parent);

    const ShortcutTable& Table() const { return table; }
    void SelectEntry(size_t entry) const;

    std::vector<OptionPart> Parts() const override; ///< the commands
    void Apply() override;

private:
    QWidget* MakeFinders(QWidget* parent);
    QWidget* MakeKeys(QWidget* parent);
    QPushButton* MakeButton(const char* name, const char* caption, void (ShortcutPage::*act)(), QWidget* parent);
    void FillTree();
    void ShowEntries();
    void ShowFound();
    void FindKey(const QKeySequence& key);
    std::optional<size_t> Selected() const;
    void ShowSelected();
    void ShowNewKey();
    void Give();
    void TakeAway();
    void Reset();
    void ResetAll();
    void ExportList();

    ShortcutTable table;
    QLineEdit* txtFindCommand;
    KeyLine *txtFindKey, *txtNewKey;
    QTreeWidget* treeCommands;
    QListWidget* lstKeys;
    QLabel *lblCommand, *lblKey;
    QPushButton *cmdGive, *cmdTake, *cmdReset, *cmdResetAll, *cmdExport;
};
