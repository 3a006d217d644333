#include "windows/parts/icons.h"

#include <QFile>

// Needs to stand outside of any namespace: the macro names a global routine.
static bool RegisterPictures()
{
    Q_INIT_RESOURCE(icons);
    return true;
}

QIcon CommandIcon(const QString& name)
{
    static const bool registered = RegisterPictures();
    const QString path = QStringLiteral(":/icons/") + name + QStringLiteral(".svg");
    return registered && QFile::exists(path) ? QIcon(path) : QIcon();
}

QIcon ListImage(const QString& list, int number)
{
    return CommandIcon(list + QLatin1Char('_') + QString::number(number).rightJustified(2, QLatin1Char('0')));
}
