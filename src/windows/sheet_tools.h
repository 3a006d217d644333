#pragma once

#include <QWidget>

class QAction;
class SheetView;
class AnimationPreview;
class QActionGroup;

/// The row above the sheet: zoom, grid, ground behind see-through pixels, pause and single frame, image editor.
class SheetTools : public QWidget
{
    Q_OBJECT

public:
    SheetTools(SheetView& view, AnimationPreview& preview, QWidget* parent);

    void SetZoom(int times);

signals:
    void ImageEditorWanted();

private:
    void AddZoom(class QToolBar& bar);
    void AddGround(class QToolBar& bar);
    void AddPlay(class QToolBar& bar);

    SheetView& view;
    AnimationPreview& preview;
    QActionGroup* zooms;
};
