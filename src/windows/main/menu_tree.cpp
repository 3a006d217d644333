#include "windows/main/menu_tree.h"

#include "windows/main/command_set.h"
#include "windows/main/menu_strip.h"

#include <QMenu>
#include <QMenuBar>
#include <QSet>

namespace {

/// The caption with its letter marked for Alt.
QString Titled(const MenuRow& row)
{
    QString title = QString::fromLatin1(row.Caption);
    if (*row.Letter)
        title.insert(title.indexOf(QLatin1String(row.Letter)), u'&');
    return title;
}

} // namespace

MenuTree::MenuTree(QMenuBar* bar, const CommandSet& commands)
{
    QSet<QString> inner;
    for (const MenuRow& row : MainMenus()) {
        auto* menu = new QMenu(Titled(row), bar);
        menu->setObjectName(QString::fromLatin1(row.Control));
        menu->setToolTipsVisible(false);
        menus.insert(menu->objectName(), menu);
        for (const CommandRow& command : row.Rows)
            if (command.Flags & OpensMenu)
                inner.insert(QString::fromLatin1(command.Control));
    }
    for (const MenuRow& row : MainMenus()) {
        QMenu* menu = Find(QString::fromLatin1(row.Control));
        Fill(menu, row, commands);
        if (!inner.contains(menu->objectName()) && !ShownRows(row).empty())
            bar->addMenu(menu);
    }
}

void MenuTree::Fill(QMenu* menu, const MenuRow& row, const CommandSet& commands)
{
    auto* strip = new MenuStrip(QString::fromLatin1(row.StripControl), QString::fromLatin1(row.Caption), menu);
    strip->setVisible(false);
    menu->addAction(strip);
    strips << strip;
    for (const auto& [command, apart] : ShownRows(row)) {
        const QString control = QString::fromLatin1(command->Control);
        QAction* action = commands.Menu(control);
        if (command->Flags & OpensMenu)
            action->setMenu(Find(control));
        if (apart)
            menu->addSeparator();
        menu->addAction(action);
    }
}

QMenu* MenuTree::Find(const QString& control) const
{
    return menus.value(control);
}

void MenuTree::ShowStrips(bool on)
{
    for (MenuStrip* strip : strips)
        strip->Show(on);
}
