#include "windows/main/command_set.h"

#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QKeySequence>
#include <QWidget>

CommandSet::CommandSet(QWidget* window) : QObject(window)
{
    for (const MenuRow& menu : MainMenus()) {
        for (const auto& [shown, apart] : ShownRows(menu)) {
            const CommandRow& row = *shown;
            Pair pair;
            pair.Menu = Make(row, QString::fromLatin1(row.Caption));
            if (*row.Shortcut) {
                pair.Menu->setShortcut(QKeySequence(QString::fromLatin1(row.Shortcut), QKeySequence::PortableText));
                window->addAction(pair.Menu);
            }
            if (row.Strip != ToolStrip::None) {
                pair.Button = Make(row, ToolTipOf(row));
                pair.Button->setToolTip(ToolTipOf(row));
            }
            pairs.insert(QString::fromLatin1(row.Control), pair);
            if (row.Flags & OpensMedia)
                mediaOpeners.insert(QString::fromLatin1(row.Control));
        }
    }
}

QAction* CommandSet::Make(const CommandRow& row, const QString& text)
{
    auto* action = new QAction(CommandIcon(QString::fromLatin1(row.ButtonKey)), text, this);
    action->setObjectName(QString::fromLatin1(row.Control));
    SetHelpSubject(action, HelpIdOf(row));
    action->setCheckable(row.Flags & CheckEntry);
    connect(action, &QAction::triggered, this, [this, run = row.Action] {
        emit AboutToRun();
        run();
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

void CommandSet::Enable(const QString& control, bool menu, bool button)
{
    const Pair pair = pairs.value(control);
    if (pair.Menu)
        pair.Menu->setEnabled(menu);
    if (pair.Button)
        pair.Button->setEnabled(button);
}

void CommandSet::Show(const QString& control, bool visible)
{
    const Pair pair = pairs.value(control);
    if (pair.Menu)
        pair.Menu->setVisible(visible);
    if (pair.Button)
        pair.Button->setVisible(visible);
}

void CommandSet::Check(const QString& control, bool checked)
{
    const Pair pair = pairs.value(control);
    if (pair.Menu)
        pair.Menu->setChecked(checked);
    if (pair.Button)
        pair.Button->setChecked(checked);
}

void CommandSet::ShowMenuIcons(bool on)
{
    for (const Pair& pair : std::as_const(pairs))
        pair.Menu->setIconVisibleInMenu(on);
}
