#pragma once

#include "graphics/sheet_opening.h"
#include "platform/files/folder_watch.h"

#include <QDialog>
#include <QFileSystemWatcher>
#include <QTimer>

struct TileUser;
class AnimationPanel;
class AnimationPreview;
class NewElementPanel;
class QLabel;
class QPushButton;
class QVBoxLayout;
class SheetTools;
class SheetView;

/// "PCX Helper": one tile sheet with the marks of an animation on it, its preview, and the fields of the element that
/// it belongs to.
class frmPCX : public QDialog
{
    Q_OBJECT

public:
    /// Opens the window and returns when it is closed. A file that is no picture gives message 107 and no window. The
    /// text is left alone: what is to become of it stands in the answer.
    static SheetAnswer Run(QWidget* owner, const SheetRequest& request);

    ~frmPCX() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    frmPCX(QWidget* owner, const SheetRequest& request);

    void LayOut();
    void ConnectParts();
    void EnableTools();
    void ShowElement();
    void ShowPick();
    void ShowWarnings();
    void BecomeQuickPreview();
    void CentreOnScreen();
    void FitSheetColumn();
    void Press(QPoint tile, Qt::MouseButton button);
    void MarkDragged(QPoint from, QPoint to);
    void ShowMarked(bool restarts);
    void MoveMark(int key, Qt::KeyboardModifiers keys);
    void Restart();
    void ShowPlayed(QPoint tile);
    void ShowPlace(QPoint pixel);
    void FlashMarks();
    void FlashTitle();
    void OpenNewElement();
    void CloseNewElement();
    void PlaceNewElement();
    void AcceptByKey();
    void CloseIfLeft();
    void GoToUser(const std::vector<TileUser>& users);
    void MakeElement(const QString& key, bool full);
    void UpdateElement();
    void End(SheetOutcome outcome);
    void WatchFile();
    void ReadAgain();
    void OpenInEditor();
    void MarkTilesInUse();

    const SheetRequest request;
    const QString path;
    SheetOpening opening;
    const bool isPick, isPreview, isQuick;
    SheetAnswer answer;
    SheetView* picScroll;
    SheetTools* tools;
    AnimationPanel* panel;
    AnimationPreview* preview;
    NewElementPanel* picNewElement;
    QWidget *side, *panelArea;
    QVBoxLayout* sheetColumn; ///< with its tools above and the place of the mouse below
    QLabel *picFlash, *buttonsHint, *place;
    QPushButton *cmdExit, *cmdNew, *cmdUpdate;
    QTimer tmrFlash, tmrFlashTitle, tmrMouseLeave, readAgain;
    QFileSystemWatcher watcher; ///< of the file
    FolderWatch folderWatch;
    int MarkerPhase = 1;
    bool mouseWasHere = false;
};

/// Opens the window on a sheet of the current document and writes what it gives back.
void OpenSheet(QWidget* owner, const SheetRequest& request);
