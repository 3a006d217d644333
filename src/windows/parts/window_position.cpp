#include "windows/parts/window_position.h"

#include "frame/settings/settings_table.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace {

constexpr Qt::WindowState States[] = {Qt::WindowNoState, Qt::WindowMinimized, Qt::WindowMaximized};
constexpr QRect FirstPlace{20, 60, 1240, 760};

int Pixels(const char* key, int missing)
{
    bool good = false;
    const int value = ReadIni(QStringLiteral("Window Positions"), QString::fromLatin1(key)).toInt(&good);
    return good ? value : missing;
}

} // namespace

WindowPosition StoredPosition()
{
    const QRect place(Pixels("Left", FirstPlace.x()), Pixels("Top", FirstPlace.y()),
                      Pixels("Width", FirstPlace.width()), Pixels("Height", FirstPlace.height()));
    return {place, States[std::clamp(Pixels("Max", 0), 0, 2)]};
}

void StorePosition(const QWidget& window)
{
    const bool maximised = window.isMaximized();
    const QRect inner = maximised ? window.normalGeometry() : window.geometry();
    const QPoint frame = window.geometry().topLeft() - window.frameGeometry().topLeft();
    const QPoint corner = maximised ? inner.topLeft() : inner.topLeft() - frame;
    const SettingsBatch batch;
    const auto write = [](const char* key, int value) {
        ChangeSetting(SettingOf(QLatin1StringView("Window Positions"), QLatin1StringView(key)), value);
    };
    write("Width", inner.width());
    write("Height", inner.height());
    write("Left", corner.x());
    write("Top", corner.y());
    write("Max", maximised ? 2 : window.isMinimized() ? 1 : 0);
}

QRect OnScreen(const QRect& place, const QSize& least)
{
    const QScreen* screen = QGuiApplication::screenAt(place.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    // The system adds a title above the size.
    const int title = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect room = screen->availableGeometry().adjusted(0, 0, 0, -title);
    const QSize size = place.size().boundedTo(room.size()).expandedTo(least);
    const int left = std::clamp(place.left(), room.left(), qMax(room.left(), room.right() + 1 - size.width()));
    const int top = std::clamp(place.top(), room.top(), qMax(room.top(), room.bottom() + 1 - size.height()));
    return {QPoint(left, top), size};
}

void ResizeOnScreen(QWidget& window, const QSize& size)
{
    window.resize(OnScreen(QRect(window.pos(), size), window.minimumSize()).size());
}
