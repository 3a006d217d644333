#include "windows/main/dialog_keys.h"

#include "windows/main/command_table.h"
#include "windows/parts/help_subject.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QKeyEvent>
#include <QMenu>

namespace {

QString SubjectIn(const QDialog& dialog)
{
    const QWidget* under = QApplication::widgetAt(QCursor::pos());
    for (const QWidget* part : std::initializer_list<const QWidget*>{under, dialog.focusWidget(), &dialog}) {
        const QString id = part && part->window() == &dialog ? HelpSubjectOf(part) : QString();
        if (!id.isEmpty())
            return id;
    }
    return {};
}

QString SubjectIn(const QMenu& menu)
{
    const QAction* chosen = menu.activeAction();
    const QString id = chosen ? HelpSubjectOf(*chosen) : QString();
    return id.isEmpty() ? HelpIdFor("") : id;
}

void CloseMenus()
{
    while (QWidget* popup = QApplication::activePopupWidget())
        if (!popup->close())
            return;
}

} // namespace

DialogKeys::DialogKeys(QWidget* mainWindow) : QObject(mainWindow)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool DialogKeys::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1 ||
        !watched->isWidgetType())
        return false;
    auto* part = static_cast<QWidget*>(watched);
    if (const auto* menu = qobject_cast<QMenu*>(part)) {
        const QString id = SubjectIn(*menu);
        CloseMenus();
        emit HelpPressed(id);
    } else if (const auto* dialog = qobject_cast<QDialog*>(part->window())) {
        if (HelpSubjectOf(dialog) == NoHelpSubject)
            return false; // a key like any other there
        emit HelpPressed(SubjectIn(*dialog));
    } else {
        return false;
    }
    event->accept();
    return true;
}
