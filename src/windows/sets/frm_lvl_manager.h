#pragma once

#include "sets/level_manager.h"
#include "windows/sets/set_filter.h"

#include <QDialog>
#include <QTimer>
#include <array>

class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTreeView;
class SetMaps;

/// "Level Manager": all games in one list, what they are, and what can be done to them.
class frmLVLManager : public QDialog
{
    Q_OBJECT

public:
    /// Opens the window, on a zipped set if one is given, and returns when it is closed: the files that the user wants
    /// to see in the tabs then.
    static QStringList Run(QWidget* owner, const QString& archive = {});

    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    explicit frmLVLManager(QWidget* owner);

    // The parts, in frm_lvl_manager_layout.cpp
    QLayout* MakeList();
    QWidget* MakePaths();
    QWidget* MakeButtons();
    QGroupBox* MakeButtonFrame(const char* name, const char* caption, const char* button, bool zipped);
    QWidget* MakeFacts();
    QLayout* MakeFoot();
    void Connect();

    void Opened(const QString& archive);
    void Scan();
    void ShowNode(int node);
    void ShowButtons();
    void ShowFacts();
    void ShowBusy(const QString& text);
    void ShowProgress(int done, int of);
    void ShowLists();
    void OpenConfs();
    bool MayLeave();

    LevelManager manager;
    QString hinders; ///< why the window cannot open
    SetFilter filter;
    QStringList wanted; ///< files to open when the window has closed
    QString busyText;
    bool closing = false;
    QTimer soon; ///< facts are read when the selection rests

    QPushButton *cmdScan, *cmdStop, *cmdClose;
    QLineEdit *txtFilter, *txtCurSetGame, *txtSelected, *txtSel2;
    QTreeView* treeLVL;
    QWidget *Frame2, *Frame3;
    QGroupBox *frmDir, *frmZip;
    std::array<QPushButton*, 5> cmdFolder{}, cmdZip{};
    std::array<QLabel*, 5> facts{};
    QLabel *cmdZipmess, *lblTold;
    QProgressBar* bar;
    SetMaps* maps;
};
