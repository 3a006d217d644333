#pragma once

#include "windows/main/command_table.h"

#include <QAction>
#include <QHash>
#include <QObject>
#include <QSet>

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

    /// Controls that have no row yet are passed over.
    void Enable(const QString& control, bool menu, bool button);
    void Show(const QString& control, bool visible);
    bool Opens(const QString& control) const { return mediaOpeners.contains(control); } ///< media of the mode
    void Check(const QString& control, bool checked);
    void ShowMenuIcons(bool on);

signals:
    void AboutToRun();

private:
    struct Pair
    {
        QAction* Menu = nullptr;
        QAction* Button = nullptr;
    };
    QAction* Make(const CommandRow& row, const QString& text);

    QHash<QString, Pair> pairs;
    QSet<QString> mediaOpeners;
};
