#pragma once

#include "windows/main/command_table.h"

#include <QAction>
#include <QHash>
#include <QObject>

class QWidget;

/// The commands as actions: one for the menu and one for the tool button of each row, since a mode may enable the one
/// without the other. The menu's action carries the shortcut.
class CommandSet : public QObject
{
    Q_OBJECT

public:
    explicit CommandSet(QWidget* window);

    QAction* Menu(const QString& control) const;   ///< null for an unknown control
    QAction* Button(const QString& control) const; ///< null if the row has no button
    QAction* MenuOf(void (*action)()) const;       ///< of the row with this action; null if none shows

    /// Gives every command the keys that are in force for it.
    void TakeKeys();
    QList<QKeySequence> KeysOf(const QString& control) const; ///< named in the menu or not

    /// Enables, shows and ticks every command by its row.
    void Update(const CommandFacts& now, const SettingsRecord& settings);
    void ShowMenuIcons(bool on);

signals:
    void AboutToRun(const CommandRow& row);
    void HasRun(const CommandRow& row);

private:
    struct Pair
    {
        const CommandRow* Row = nullptr;
        QAction* Menu = nullptr;
        QAction* Button = nullptr;
        QAction* Unnamed = nullptr; ///< has the shipped keys that the menu does not name
    };
    QAction* Make(const CommandRow& row, const QString& text);

    QHash<QString, Pair> pairs;
};
