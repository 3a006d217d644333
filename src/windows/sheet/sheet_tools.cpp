#include "windows/sheet/sheet_tools.h"
#include "windows/parts/extension_arrow.h"

#include "frame/settings/settings.h"
#include "windows/sheet/animation_preview.h"
#include "windows/sheet/sheet_view.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QToolBar>
#include <QToolButton>

namespace {

const QString Section = QStringLiteral("PCX Helper");
constexpr int Zooms[] = {1, 2, 4};
constexpr const char* Grounds[] = {"Checker", "Black", "White"}; // as SheetGround

} // namespace

SheetTools::SheetTools(SheetView& sheet, AnimationPreview& player, QWidget* parent)
    : QWidget(parent), view(sheet), preview(player), zooms(new QActionGroup(this))
{
    auto* bar = new QToolBar(this);
    ColourExtensionArrow(*bar);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    AddZoom(*bar);
    bar->addSeparator();
    AddGround(*bar);
    bar->addSeparator();
    AddPlay(*bar);
    bar->addSeparator();
    bar->addAction(QStringLiteral("Open in Image Editor"), this, &SheetTools::ImageEditorWanted);
    for (QAction* action : bar->actions())
        if (auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action)))
            button->setFocusPolicy(Qt::TabFocus);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(bar);
}

void SheetTools::AddZoom(QToolBar& bar)
{
    const int kept = ReadIni(Section, QStringLiteral("Zoom")).toInt();
    for (const int times : Zooms) {
        QAction* action = bar.addAction(QStringLiteral("%1x").arg(times), this, [this, times] { SetZoom(times); });
        action->setToolTip(QStringLiteral("Zoom %1 times (Ctrl + wheel)").arg(times));
        action->setCheckable(true);
        action->setData(times);
        zooms->addAction(action);
    }
    connect(&view, &SheetView::ZoomWanted, this, &SheetTools::SetZoom);
    SetZoom(std::find(std::begin(Zooms), std::end(Zooms), kept) != std::end(Zooms) ? kept : 1);
}

void SheetTools::SetZoom(int times, std::optional<QPoint> place)
{
    for (QAction* action : zooms->actions())
        if (action->data().toInt() == times)
            action->setChecked(true);
    preview.SetZoom(times);
    if (view.Zoom() == times)
        return;
    view.SetZoom(times, place);
    WriteIni(times, Section, QStringLiteral("Zoom"));
}

void SheetTools::SetGround(int kind)
{
    view.SetGround(SheetGround(kind));
    preview.SetGround(SheetGround(kind));
}

void SheetTools::AddGround(QToolBar& bar)
{
    QAction* grid = bar.addAction(QStringLiteral("Grid"));
    grid->setCheckable(true);
    grid->setToolTip(QStringLiteral("Lines between the tiles"));
    connect(grid, &QAction::toggled, this, [this](bool on) {
        view.SetGrid(on);
        WriteIni(on, Section, QStringLiteral("Grid"));
    });
    grid->setChecked(ReadIni(Section, QStringLiteral("Grid")).toInt() == 1);
    QAction* dots = bar.addAction(QStringLiteral("Dots"));
    dots->setCheckable(true);
    dots->setToolTip(QStringLiteral("Dotted tiles: used by other blocks of the text"));
    dots->setChecked(ReadIni(Section, QStringLiteral("Dots")) != QStringLiteral("0"));
    view.SetDots(dots->isChecked());
    connect(dots, &QAction::toggled, this, [this](bool on) {
        view.SetDots(on);
        WriteIni(on, Section, QStringLiteral("Dots"));
    });
    auto* grounds = new QActionGroup(this);
    const int kept = qBound(0, ReadIni(Section, QStringLiteral("Ground")).toInt(), int(std::size(Grounds)) - 1);
    for (int kind = 0; kind < int(std::size(Grounds)); ++kind) {
        QAction* action = bar.addAction(QString::fromLatin1(Grounds[kind]), this, [this, kind] {
            SetGround(kind);
            WriteIni(kind, Section, QStringLiteral("Ground"));
        });
        action->setToolTip(QStringLiteral("What stands behind see-through pixels"));
        action->setCheckable(true);
        action->setChecked(kind == kept);
        grounds->addAction(action);
    }
    SetGround(kept);
}

void SheetTools::AddPlay(QToolBar& bar)
{
    QAction* pause = bar.addAction(QStringLiteral("Pause"));
    QAction* step = bar.addAction(QStringLiteral("Single Frame"), this, [this] { preview.StepOnce(); });
    pause->setCheckable(true);
    pause->setToolTip(QStringLiteral("Hold the preview"));
    step->setToolTip(QStringLiteral("One frame on, while the preview is held"));
    step->setEnabled(false);
    connect(pause, &QAction::toggled, this, [this, step](bool on) {
        preview.SetPaused(on);
        step->setEnabled(on);
    });
}
