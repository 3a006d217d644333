#include "windows/sets/set_maps.h"

#include "platform/images/images.h"
#include "windows/parts/dialog_help.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

constexpr QSize MapRoom{132, 96}; ///< pixels at 96 dpi

} // namespace

SetMaps::SetMaps(QWidget* parent) : QWidget(parent)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    for (size_t i = 0; i < labels.size(); ++i) {
        labels[i] = new QLabel(this);
        labels[i]->setObjectName(QStringLiteral("lblMap%1").arg(i));
        labels[i]->setAlignment(Qt::AlignCenter);
        row->addWidget(labels[i], 1);
    }
    setFixedHeight(Pixels(*this, MapRoom.height()));
}

void SetMaps::Show(std::vector<FirstLevel> levels, const QString& game)
{
    shown = std::move(levels);
    const QString wanted = FindPalette(game.toLower() + QStringLiteral(".gif"));
    if (wanted == palette || shown.empty()) {
        Draw();
        return;
    }
    images::LoadLater(wanted, this, [this, wanted](const Result<images::Picture>& picture) {
        palette = wanted;
        painter = MapPainter(picture ? picture->Pixels : QImage());
        Draw();
    });
}

void SetMaps::Draw()
{
    const QSize room = QSize(Pixels(*this, MapRoom.width()), Pixels(*this, MapRoom.height())) * devicePixelRatioF();
    for (size_t i = 0; i < labels.size(); ++i) {
        if (i >= shown.size()) {
            labels[i]->clear();
            labels[i]->setToolTip({});
            continue;
        }
        const FirstLevel& level = shown[i];
        QImage map = painter.Small(level.Map, room);
        if (map.width() > room.width() || map.height() > room.height())
            map = map.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        QPixmap pixels = QPixmap::fromImage(map);
        pixels.setDevicePixelRatio(devicePixelRatioF());
        labels[i]->setPixmap(pixels);
        const QString told = QStringLiteral("%1: %2, %3 by %4")
                                 .arg(level.File, level.Name)
                                 .arg(level.Map.Width())
                                 .arg(level.Map.Height());
        labels[i]->setToolTip(told.toHtmlEscaped());
        labels[i]->setAccessibleName(told);
    }
}
