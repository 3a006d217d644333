#include "windows/images/viewer_tools.h"
#include "windows/parts/extension_arrow.h"

#include "frame/settings/settings.h"
#include "windows/images/picture_viewer.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QToolBar>
#include <QToolButton>

namespace {

constexpr int Zooms[] = {1, 2, 4, 8};

} // namespace

ViewerTools::ViewerTools(QString kept, std::vector<PictureViewer*> shown, QWidget* parent)
    : QWidget(parent), section(std::move(kept)), viewers(std::move(shown)), zooms(new QActionGroup(this))
{
    auto* bar = new QToolBar(this);
    ColourExtensionArrow(*bar);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    for (const int times : Zooms) {
        QAction* action = bar->addAction(QStringLiteral("%1x").arg(times), this, [this, times] { SetZoom(times); });
        action->setToolTip(QStringLiteral("Zoom %1 times (Ctrl + wheel)").arg(times));
        action->setCheckable(true);
        action->setData(times);
        zooms->addAction(action);
    }
    bar->addSeparator();
    QAction* game = bar->addAction(QStringLiteral("As in the Game"));
    game->setToolTip(QStringLiteral("Black is see-through there: a checker stands behind it"));
    game->setCheckable(true);
    connect(game, &QAction::toggled, this, [this](bool on) {
        for (PictureViewer* viewer : viewers)
            viewer->SetInGame(on);
        WriteIni(on, section, QStringLiteral("InGame"));
    });
    game->setChecked(ReadIni(section, QStringLiteral("InGame")).toInt() == 1);
    for (QAction* action : bar->actions())
        if (auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action)))
            button->setFocusPolicy(Qt::TabFocus);
    for (PictureViewer* viewer : viewers)
        connect(viewer, &PictureViewer::ZoomWanted, this, &ViewerTools::StepZoom);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(bar);
    const int times = ReadIni(section, QStringLiteral("Zoom")).toInt();
    SetZoom(std::find(std::begin(Zooms), std::end(Zooms), times) != std::end(Zooms) ? times : 1);
}

void ViewerTools::SetZoom(int times)
{
    for (QAction* action : zooms->actions())
        action->setChecked(action->data().toInt() == times);
    if (times == zoom)
        return;
    zoom = times;
    for (PictureViewer* viewer : viewers)
        viewer->SetZoom(times);
    WriteIni(times, section, QStringLiteral("Zoom"));
}

void ViewerTools::StepZoom(int steps)
{
    const auto now = std::find(std::begin(Zooms), std::end(Zooms), zoom) - std::begin(Zooms);
    SetZoom(Zooms[qBound<std::ptrdiff_t>(0, now + steps, std::ssize(Zooms) - 1)]);
}
