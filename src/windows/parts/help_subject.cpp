#include "windows/parts/help_subject.h"

#include <QCoreApplication>
#include <QEvent>
#include <QVariant>

namespace {

constexpr const char* Property = "helpSubject";

} // namespace

void SetHelpSubject(QWidget* part, const QString& id)
{
    part->setProperty(Property, id);
}

QString HelpSubjectOf(const QWidget* part)
{
    for (; part; part = part->isWindow() ? nullptr : part->parentWidget()) {
        const QVariant id = part->property(Property);
        if (id.isValid())
            return id.toString();
    }
    return {};
}

void SetHelpSubject(QAction* entry, const QString& id)
{
    entry->setProperty(Property, id);
}

QString HelpSubjectOf(const QAction& entry)
{
    return entry.property(Property).toString();
}

QString HelpIdFor(const char* key)
{
    return QStringLiteral("H_main_") + QLatin1String(key);
}

HelpSubject::HelpSubject(QWidget* watchedWindow) : QObject(watchedWindow), window(watchedWindow)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool HelpSubject::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseMove && watched->isWidgetType()) {
        const auto* part = static_cast<const QWidget*>(watched);
        if (part->window() == window) {
            const QString id = HelpSubjectOf(part);
            if (!id.isNull()) {
                helpId = id;
                emit Moved(helpId);
            }
        }
    }
    return false;
}
