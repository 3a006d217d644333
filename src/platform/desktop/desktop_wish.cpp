#include "platform/desktop/desktop_wish.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFileInfo>

namespace {

const QString Service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString Place = QStringLiteral("/org/freedesktop/portal/desktop");
const QString Interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString Group = QStringLiteral("org.freedesktop.appearance");
const QString Key = QStringLiteral("color-scheme");
enum Scheme : uint { NoWish, PrefersDark, PrefersLight };

/// Older answers are a variant in a variant.
QVariant Inner(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

QDBusConnection DesktopWish::SessionBus()
{
    // Without one, asking for it would start one.
    const bool some = qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
                      QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
    return some ? QDBusConnection::sessionBus() : QDBusConnection(QStringLiteral("none"));
}

DesktopWish::DesktopWish(const QDBusConnection& bus, QObject* parent) : QObject(parent)
{
    if (!bus.isConnected())
        return;
    QDBusConnection listening = bus;
    listening.connect(Service, Place, Interface, QStringLiteral("SettingChanged"), this,
                      SLOT(TakeSetting(QDBusMessage)));

    QDBusMessage question = QDBusMessage::createMethodCall(Service, Place, Interface, QStringLiteral("Read"));
    question << Group << Key;
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* done) {
        const QDBusPendingReply<QDBusVariant> reply = *done;
        if (!reply.isError())
            Take(reply.value().variant());
        done->deleteLater();
    });
}

void DesktopWish::TakeSetting(const QDBusMessage& setting)
{
    const QVariantList parts = setting.arguments(); // group, key, value
    if (parts.size() == 3 && parts[0] == Group && parts[1] == Key)
        Take(parts[2]);
}

void DesktopWish::Take(const QVariant& value)
{
    const uint scheme = Inner(value).toUInt();
    const std::optional<bool> wish = scheme == PrefersDark    ? std::optional(true)
                                     : scheme == PrefersLight ? std::optional(false)
                                                              : std::nullopt;
    if (std::exchange(dark, wish) != wish)
        emit Changed();
}
