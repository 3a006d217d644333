#pragma once

#include <QPoint>
#include <QWidget>
#include <optional>

class QAction;
class SheetView;
class AnimationPreview;
class QActionGroup;

/// The row above the sheet: zoom, grid, dots, ground behind see-through pixels, pause and single frame, image editor.
class SheetTools : public QWidget
{
    Q_OBJECT

public:
    SheetTools(SheetView& view, AnimationPreview& preview, QWidget* parent);

    /// Holding what lies at `place` of the view, if one is given.
    void SetZoom(int times, std::optional<QPoint> place = std::nullopt);

signals:
    void ImageEditorWanted();

private:
    void AddZoom(class QToolBar& bar);
    void AddGround(class QToolBar& bar);
    void AddPlay(class QToolBar& bar);
    void SetGround(int kind);

    SheetView& view;
    AnimationPreview& preview;
    QActionGroup* zooms;
};
