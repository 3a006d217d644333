#pragma once

#include <QDBusConnection>
#include <QDBusMessage> // a slot takes one
#include <QObject>
#include <optional>

/// Whether the desktop wants light or dark windows, as it tells all programs over the session bus. Asked once at
/// construction, then followed; nothing waits for the answer.
class DesktopWish : public QObject
{
    Q_OBJECT

public:
    explicit DesktopWish(const QDBusConnection& bus, QObject* parent = nullptr);

    /// Nothing: it has not answered (yet), or has no wish.
    std::optional<bool> Dark() const { return dark; }

    /// The bus of the session that runs; one that is not connected where there is none.
    static QDBusConnection SessionBus();

signals:
    void Changed();

private slots:
    /// A slot with a variant among its parameters is found only once the bus library knows the type.
    void TakeSetting(const QDBusMessage& setting);

private:
    void Take(const QVariant& value);

    std::optional<bool> dark;
};
