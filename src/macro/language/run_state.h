#pragma once

#include "macro/language/groups.h"
#include "macro/language/program.h"
#include "macro/language/random_numbers.h"
#include "macro/language/run_paths.h"
#include "macro/language/run_results.h"

#include "conf/element_record.h"
#include "macro/level_run.h"

#include <array>
#include <memory>

class ByteFile;
class DocumentText;
class RunScope;
class RunStage;

/// The one active If, the one active Case and the one loop of a run. A gosub gives a fresh set.
struct BlockState
{
    bool IfActive = false, IfTrue = false;
    bool CaseActive = false, CaseTrue = false, CaseHit = false;
    Value CaseValue;
    int LoopLine = -1; ///< of the running `loop`; -1: none
    int LoopRemaining = -1, LoopLimit = 0, LoopStep = 1;
};

struct SubFrame
{
    int ReturnLine = 0;
    BlockState Block;
};

/// All state of one run of a macro. Nothing of it outlives the run.
struct RunState
{
    RunState(RunStage& stage, RunScope& scope);
    ~RunState();
    RunState(const RunState&) = delete;
    RunState& operator=(const RunState&) = delete;

    RunStage& Stage;
    RunScope& Scope;
    DocumentText& Text() { return *target; }
    QString MacroPath; ///< of the macro's file; empty: of source that was never saved
    bool TestRun = false;

    Program Code;
    int CurrentLine = 0; ///< a jump stores the line before the one that shall run next
    QString ErrorText;   ///< not empty: the run fails
    bool StopRequested = false;
    bool Attention = false; ///< the loop has to look at the three: failed, stopped, or
    bool TurnWanted = true; ///< events are to run before the next line

    BlockState Block;
    bool InSub = false;
    int SubDepth = 0;
    static constexpr int DeepestSub = 100;
    std::array<SubFrame, DeepestSub + 1> SubFrames; ///< used from 1

    VariableTable Variables;
    GroupTable Groups;
    Group* OpenGroup = nullptr; ///< between `group` and `endgroup`
    QList<Value> ListItems;     ///< the first is slot 1
    QString ListTitle;

    RandomNumbers Random;
    RunPaths Paths;
    RunResults Last;
    LevelRun Levels;
    ElementRecord Element = NoElement(); ///< what the last pick from a sheet gave
    Value TabbedValue;                   ///< what [tab] pads: the variable that `set` works on
    QString Author;
    bool Overtype = false;
    bool FileProtection = true;
    qint64 PeekOffset = 0;              ///< added to the address of every peek and poke
    std::unique_ptr<ByteFile> SetBytes; ///< of the set file, while peek and poke work on it
    QString SetBytesPath;
    QString CurrentAlias;      ///< the one chosen last
    quint64 CurrentWindow = 0; ///< chosen or started last
    qint64 CurrentProcess = 0; ///< whose it is
    int CurrentEntry = 0;      ///< place of CurrentAlias among the started windows
    bool MainHidden = false;
    int ButtonsDown = 0;    ///< mouse buttons that the macro holds, 1 << mouse::Button
    bool SafeSystem = true; ///< as the setting is
    QString ClipboardBackup;
    QString PrintedLine; ///< by the `print` under way

    void Fail(const QString& text)
    {
        ErrorText = text;
        Attention = true;
    }
    void Fail(const char* text) { Fail(QString::fromLatin1(text)); }
    void RequestStop() { StopRequested = Attention = true; }
    void WantTurn() { TurnWanted = Attention = true; }
    /// What the dialogs leave in [lastmessageresult].
    void SetOutcome(bool ok) { Last.MessageResult = Value(ok ? QStringLiteral("ok") : QStringLiteral("cancel")); }
    bool Failed() const { return !ErrorText.isEmpty(); }

    /// False in a branch of an If or a Case that does not hold.
    bool BranchIsLive() const { return !(Block.IfActive && !Block.IfTrue) && !(Block.CaseActive && !Block.CaseTrue); }
    bool InLoop() const { return Block.LoopLine != -1; }
    bool CheckNotInBlock(bool allowInCase = false)
    {
        if (Block.IfActive)
            Fail("Can't have this command inside an If statement");
        else if (Block.CaseActive && !allowInCase)
            Fail("Can't have this command inside a Case statement");
        return !Block.IfActive && (allowInCase || !Block.CaseActive);
    }
    static ElementRecord NoElement(); ///< texts empty, numbers 0, mode "loop"
    /// Fails and stops the run too.
    void FailAndStop(const char* text)
    {
        Fail(text);
        RequestStop();
    }

private:
    DocumentText* target;
};
