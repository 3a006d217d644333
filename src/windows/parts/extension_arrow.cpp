#include "windows/parts/extension_arrow.h"

#include <QEvent>
#include <QIcon>
#include <QPainter>
#include <QToolBar>
#include <QToolButton>

namespace {

constexpr int ArrowSize = 8; // pixels

QIcon Arrows(const QWidget& on)
{
    const qreal scale = on.devicePixelRatioF();
    QPixmap picture(QSize(ArrowSize, ArrowSize) * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(on.palette().color(QPalette::ButtonText), 1.2));
    for (const qreal x : {1.0, 4.5})
        painter.drawPolyline(QPolygonF({{x, 1}, {x + 2.5, 4}, {x, 7}}));
    return picture;
}

/// The button takes the style's arrows again whenever it is laid out anew.
class ArrowKeeper : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        constexpr QEvent::Type moments[] = {QEvent::Show, QEvent::PaletteChange, QEvent::StyleChange};
        if (std::find(std::begin(moments), std::end(moments), event->type()) != std::end(moments))
            QMetaObject::invokeMethod(
                watched, [button = static_cast<QToolButton*>(watched)] { button->setIcon(Arrows(*button)); },
                Qt::QueuedConnection); // behind what the button itself does then
        return false;
    }
};

} // namespace

void ColourExtensionArrow(QToolBar& bar)
{
    if (auto* button = bar.findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button")))
        button->installEventFilter(new ArrowKeeper(button));
}
