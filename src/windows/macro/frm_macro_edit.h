#pragma once

#include "windows/macro/code_stops.h"
#include "windows/macro/test_stage.h"

#include <QDialog>
#include <array>
#include <functional>
#include <memory>

class QCheckBox;
class QLabel;
class QMenu;
class QMenuBar;
class QPushButton;
class QTabWidget;
class CommandList;
class JumpList;
class KeptCode;
class LiveMarks;
class StopBar;
class WatchList;
struct RecoveredText;

/// The workbench of Gemforge BASIC: a pane with a macro's code, and a pane on which its test runs work.
class frmMacroEdit : public QDialog, private TestView
{
    Q_OBJECT

public:
    /// Open until its user leaves it. `macroToEdit`: the macro's file; empty: a new one.
    static void Run(QWidget* owner, const QString& macroToEdit = {});
    /// The same with the code of a new macro, which is not saved yet.
    static void RunOn(QWidget* owner, const QString& code);
    /// The same with unsaved code of an earlier window.
    static void TakeBack(QWidget* owner, const RecoveredText& kept);

    ~frmMacroEdit() override;

    enum Side { Code, Output };
    EditorPane& txtEdit(Side side) const { return *panes[side]; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    explicit frmMacroEdit(QWidget* owner);
    static void Show(QWidget* owner, const std::function<void(frmMacroEdit&)>& fill);

    // Parts
    void MakePanes();
    void MakeMenus();
    void MakeRunMenu();
    QWidget* MakeSide();
    QWidget* MakeLists(QWidget* side);
    void Connect();
    void DressCode();
    void DressOutput();

    // Files
    void New();
    void AskForMacro();
    void TakeDropped(const QStringList& files);
    void Open(const QString& path);
    bool Save(); ///< false: not saved
    bool SaveAs();
    bool SaveUnder(const QString& path);
    void TakeFile(const QString& path); ///< what is open from now on; empty: a new macro
    void TakeText(const QString& text);
    void ShowResources();
    void AddResource();
    void RemoveResource(const QString& name);
    bool MayGiveUpCode();
    bool MayLeave();
    bool HandCodeToTab(); ///< where it cannot be kept as code

    // Test runs
    void Test() { TestFrom(CodeStops::Way::On); }
    void TestFrom(CodeStops::Way way);
    void RunTest();
    void ClearOutput();
    void SetBusy(bool busy);
    void MarkCaretLine(Side side);
    void GotoMark(bool forward);
    EditorPane& PaneInFront() const;
    void ShowFault(const MacroError& error) override;
    QProgressBar& ProgressBar() override { return *progress; }
    bool StepsLines() const override;
    void WantSteps(bool wanted) override;
    void ShowStep(RunState& run) override;
    bool Watches() const override;
    void ShowWatch(RunState& run) override;
    bool StopsBefore(RunState& run) override;
    void WaitAt(RunState& run) override;
    void LetLook(bool on);
    void MarkLine(int colour, int line); ///< of the code
    void GoOn(CodeStops::Way how);
    QString HoverOf(const QString& word);
    void ShowLists();
    void TurnToList();
    void InsertCommand(const QString& word);
    void HelpForCode(bool ofList);

    std::array<std::unique_ptr<EditorPane>, 2> panes;
    std::unique_ptr<KeptCode> kept;
    std::unique_ptr<LiveMarks> marks;
    std::unique_ptr<CodeStops> stops;
    QMenuBar* menus;
    QWidget* body;
    QTabWidget* SSmacro;
    QLabel *lblFile, *lblSays;
    QPushButton *cmdTest, *cmdClear;
    QCheckBox *chkClear, *chkSpace, *chkStep, *chkWatch, *chkTerminal9;
    QLabel* labcom;
    CommandList* words;
    WatchList* lstWatch;
    JumpList* places;
    StopBar* bar;
    QProgressBar* progress;
    QAction *mnusave, *mnutest;
    QMenu *mnuRes, *mnuRun;
    QList<QAction*> onlyStopped; ///< entries for a run that stands still
    QString path;                ///< MacroFilePath
    const QString keptFolder, keptFile;
    bool running = false, closeWanted = false;
};
