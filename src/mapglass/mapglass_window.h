#pragma once

#include "level/level_files.h"
#include "level/level_palette.h"
#include "level/level_viewer.h"
#include "level/palette_maker.h"

#include <QDateTime>
#include <QMainWindow>
#include <functional>

class ElementList;
class LevelStrip;
class MapView;
class QComboBox;
class QLabel;
class QSplitter;
class QToolBar;

/// The level viewer: the folder's levels at the left, the map in the middle, the level's header and elements at the
/// right.
class MapglassWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MapglassWindow(QWidget* parent = nullptr);

    /// Shows a level, or in its place why it is none.
    void OpenLevel(const QString& path);

    /// From now on a rectangle can be drawn, and what the person does is told once, when the window closes.
    using Answering = std::function<Result<>(const ViewAnswer&)>;
    void ServeMacro(const ViewRequest& request, Answering answer);

    QString Path() const { return path; }

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    enum PaletteChoice { OwnPalette, SetsGraphics, ClassicPalette };

    void LayOut();
    QWidget* MakeSide();
    void MakeActions();
    void ReadAgain(); ///< the level as it is on disk now
    void AskForLevel();
    void StepLevel(int rows);
    void ShowHeader();
    void ShowFacts(const QString& failure);
    void FollowFolder();
    void TakePalettes();
    void ChoosePalette();
    void MakeSetPalette();
    void UsePalette(const QImage& palette);
    void Tell(const QString& text);
    void TellCell(int x, int y);
    void TellZoom();
    void TellBox();
    void MarkElements();
    void CopyPicture();
    void Export();
    void Print();
    void Finish(bool cancelled);
    void FinishAndClose();

    QString path, folder;
    LevelFile level;       ///< as it was read; without a map if it is none
    QDateTime readAt;      ///< the file's time then
    QString wantedPalette; ///< file name that a macro has told
    MapPainter painter;
    std::optional<SetPalette> setPalette;
    QString setPaletteOf; ///< folder that it was made for
    Answering answer;
    bool answered = false;

    QSplitter* split;
    LevelStrip* strip;
    MapView* view;
    ElementList* elements;
    QWidget* banner;
    QLabel *message, *boxText;
    QList<QLabel*> facts;
    QLabel *cellText, *zoomText;
    QComboBox* palettes;
    QAction *undrawn, *unmark;
    QList<QAction*> levelActions; ///< that make sense while a level is shown
    QList<QAction*> otherLevels;  ///< that lead to another level
};
