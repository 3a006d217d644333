#include "windows/main/command_set.h"

#include "frame/settings/shortcuts.h"
#include "windows/main/command_keys.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QWidget>

CommandSet::CommandSet(QWidget* window) : QObject(window)
{
    for (const MenuRow& menu : MainMenus()) {
        for (const auto& [shown, apart] : ShownRows(menu)) {
            const CommandRow& row = *shown;
            Pair pair;
            pair.Row = shown;
            pair.Menu = Make(row, QString::fromLatin1(row.Caption));
            window->addAction(pair.Menu);
            pair.Unnamed = new QAction(this);
            window->addAction(pair.Unnamed);
            connect(pair.Unnamed, &QAction::triggered, pair.Menu, &QAction::trigger);
            if (row.Strip != ToolStrip::None) {
                pair.Button = Make(row, ToolTipOf(row));
                pair.Button->setToolTip(ToolTipOf(row));
            }
            pairs.insert(QString::fromLatin1(row.Control), pair);
        }
    }
    TakeKeys();
}

void CommandSet::TakeKeys()
{
    for (const Pair& pair : std::as_const(pairs)) {
        const QList<QKeySequence> shipped = ShippedKeys(*pair.Row);
        const QList<QKeySequence> keys = KeysInForce(QString::fromLatin1(pair.Row->Control), shipped);
        const bool unnamed = !*pair.Row->Shortcut && keys == shipped;
        pair.Menu->setShortcuts(unnamed ? QList<QKeySequence>() : keys);
        pair.Unnamed->setShortcuts(unnamed ? keys : QList<QKeySequence>());
    }
}

QList<QKeySequence> CommandSet::KeysOf(const QString& control) const
{
    const Pair pair = pairs.value(control);
    return pair.Menu ? pair.Menu->shortcuts() + pair.Unnamed->shortcuts() : QList<QKeySequence>();
}

QAction* CommandSet::Make(const CommandRow& row, const QString& text)
{
    auto* action = new QAction(CommandIcon(QString::fromLatin1(row.ButtonKey)), text, this);
    action->setObjectName(QString::fromLatin1(row.Control));
    SetHelpSubject(action, HelpIdOf(row));
    action->setCheckable(row.Flags & CheckEntry);
    connect(action, &QAction::triggered, this, [this, &row] {
        emit AboutToRun(row);
        row.Action();
        emit HasRun(row);
    });
    return action;
}

QAction* CommandSet::Menu(const QString& control) const
{
    return pairs.value(control).Menu;
}

QAction* CommandSet::Button(const QString& control) const
{
    return pairs.value(control).Button;
}

QAction* CommandSet::MenuOf(void (*action)()) const
{
    for (const Pair& pair : pairs)
        if (pair.Row->Action == action)
            return pair.Menu;
    return nullptr;
}

void CommandSet::Update(const CommandFacts& now, const SettingsRecord& settings)
{
    for (const Pair& pair : std::as_const(pairs)) {
        const CommandRow& row = *pair.Row;
        const bool visible = IsVisible(row, now);
        const bool checked = row.Checked && settings.*row.Checked == 1;
        pair.Menu->setVisible(visible);
        pair.Menu->setEnabled(EntryEnabled(row, now));
        pair.Menu->setChecked(checked);
        if (!pair.Button)
            continue;
        pair.Button->setVisible(visible);
        pair.Button->setEnabled(ButtonEnabled(row, now));
        pair.Button->setChecked(checked);
    }
}

void CommandSet::ShowMenuIcons(bool on)
{
    for (const Pair& pair : std::as_const(pairs))
        pair.Menu->setIconVisibleInMenu(on);
}
