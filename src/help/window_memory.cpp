#include "help/window_memory.h"

#include <QSettings>

namespace {

QSettings Store()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("gemforge"), QStringLiteral("help"));
}

} // namespace

WindowMemory RecallWindow()
{
    const QSettings store = Store();
    bool number = false;
    const int zoom = store.value(QStringLiteral("Zoom")).toInt(&number);
    return {store.value(QStringLiteral("Geometry")).toByteArray(), store.value(QStringLiteral("Split")).toByteArray(),
            number ? zoom : 100};
}

void KeepWindow(const WindowMemory& memory)
{
    QSettings store = Store();
    store.setValue(QStringLiteral("Geometry"), memory.Geometry);
    store.setValue(QStringLiteral("Split"), memory.Split);
    store.setValue(QStringLiteral("Zoom"), memory.Zoom);
}
