#include "windows/parts/dialog_help.h"

#include <QApplication>
#include <QWidget>

ModalScope::ModalScope() : arrow(QGuiApplication::overrideCursor() != nullptr)
{
    if (arrow)
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
}

ModalScope::~ModalScope()
{
    if (arrow)
        QGuiApplication::restoreOverrideCursor();
}

int Pixels(const QWidget& widget, int at96)
{
    return qRound(at96 * widget.logicalDpiX() / 96.0);
}

QWidget* DialogParent(QWidget* owner)
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    return owner ? owner->window() : nullptr;
}

bool WindowsHavePlaces()
{
    return !QGuiApplication::platformName().startsWith(QLatin1StringView("wayland"));
}

QString WithoutMnemonic(QString caption)
{
    return caption.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

void CloseModalWindows()
{
    while (QWidget* modal = QApplication::activeModalWidget())
        if (!modal->close())
            return;
}
