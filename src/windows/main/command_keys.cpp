#include "windows/main/command_keys.h"

#include <QAction>

namespace {

constexpr int Ctrl = Qt::CTRL, Shift = Qt::SHIFT;
constexpr QLatin1StringView MacroMenu("mnuExtra");

constexpr WindowKeyRow Rows[] = {
    {Qt::Key_F1, "help on what is under the mouse, else on the word at the caret"},
    {Qt::Key_F6, "next part of the window"},
    {Qt::Key_F10, "menu bar"},
    {Qt::Key_F10 | Shift, "menu at the caret"},
    {Qt::Key_Tab | Ctrl, "next tab"},
    {Qt::Key_Tab | Ctrl | Shift, "previous tab"},
    {Qt::Key_PageDown | Ctrl, "next tab"},
    {Qt::Key_PageUp | Ctrl, "previous tab"},
};

std::vector<FixedKey> AllFixedKeys()
{
    std::vector<FixedKey> keys;
    for (const WindowKeyRow& row : Rows)
        keys.push_back({QKeySequence(row.Key), QString::fromLatin1(row.Meaning)});
    for (const MenuRow& menu : MainMenus())
        if (*menu.Letter)
            keys.push_back({QKeySequence(QStringLiteral("Alt+") + QString::fromLatin1(menu.Letter).toUpper()),
                            QStringLiteral("menu ") + QString::fromLatin1(menu.Caption)});
    return keys;
}

} // namespace

QList<QKeySequence> ShippedKeys(const CommandRow& row)
{
    return KeysOfText(QString::fromLatin1(row.Shortcut)) + KeysOfText(QString::fromLatin1(row.OtherKeys));
}

std::span<const WindowKeyRow> WindowKeyRows()
{
    return Rows;
}

ShortcutTable CommandShortcuts(const QList<QAction*>& macros)
{
    std::vector<ShortcutEntry> entries;
    for (const MenuRow& menu : MainMenus()) {
        const QString group = QString::fromLatin1(menu.Caption);
        for (const auto& [row, apart] : ShownRows(menu))
            entries.push_back(
                {QString::fromLatin1(row->Control), group, QString::fromLatin1(row->Caption), ShippedKeys(*row)});
        if (MacroMenu != QLatin1StringView(menu.Control))
            continue;
        for (const QAction* macro : macros)
            entries.push_back({macro->objectName(), group, macro->toolTip(), {}});
    }
    return {std::move(entries), AllFixedKeys()};
}
