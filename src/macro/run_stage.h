#pragma once

#include "platform/result.h"

#include <QPoint>
#include <QString>
#include <functional>
#include <optional>

class DocumentText;
class RegistryStore;
class TextClipboard;
struct MacroError;
struct RunState;

/// Colour slots of the text screen: what is printed, and what it stands on.
constexpr int PrintSlot = 16, GroundSlot = 17;

/// The text that a run works on, as a screen: what a person sees of it beyond its characters.
class TextScreen
{
public:
    virtual ~TextScreen() = default;
    virtual QString FontName() const = 0;
    virtual double FontSize() const = 0;
    virtual void SetFont(const QString& name, double points) = 0;
    virtual void SetColor(int slot, int bgr) = 0;
    virtual int GetColor(int slot) const = 0;
};

/// The progress bar of the window that a run belongs to.
class ProgressBarPort
{
public:
    virtual ~ProgressBarPort() = default;
    virtual void Show(int maximum) = 0;
    virtual void SetValue(int value) = 0; ///< from 1 to the maximum
    virtual void Hide() = 0;
    virtual int Maximum() const = 0;
    virtual int Value() const = 0;
};

enum class StepAnswer { Next, Continue, Break };

/// What a run needs of its surroundings: the main window, the workbench, or nothing but a text.
class RunStage
{
public:
    virtual ~RunStage() = default;
    virtual DocumentText& Target() = 0;        ///< the text that commands work on
    virtual void ShowTarget(bool visible) = 0; ///< for moments when a person must see it
    virtual void ShowNow() = 0;                ///< the target as it stands, for one turn of events
    virtual void Printed(const QString&) {}    ///< told of each text that `print` writes
    virtual TextScreen& Screen() = 0;
    virtual ProgressBarPort& Bar() = 0;
    virtual TextClipboard& Clipboard() = 0;
    virtual void SetTurn(std::function<bool()>) {}   ///< for operations on the target that take long
    virtual bool HasWindow() const = 0;              ///< false: commands on windows, mouse and keys fail
    virtual quint64 MainWindow() const { return 0; } ///< handle of the program's own window; 0: there is none
    virtual void ShowMainWindow(bool) {}
    virtual QPoint TextOrigin() const { return {}; } ///< of the target on the screen, in pixels
    virtual RegistryStore& Registry() = 0;           ///< where macros keep values between runs
    virtual void TextCameFrom(const QString&) {}     ///< the target holds the text of this file now
    /// The target into this file, which is its document's from now on. A failure that was told comes back as none.
    virtual Result<> SaveTarget(const QString& path) = 0;

    virtual void ReportError(const MacroError& error) = 0; ///< shows it; the run is over
    virtual QString SelectedMedia() const = 0;             ///< full path of what is selected in the media lists

    // Of a test run
    virtual bool StepsLines() const { return false; } ///< is a step prompt wanted in front of each line?
    virtual void WantSteps(bool) {}
    virtual StepAnswer Step(RunState&) { return StepAnswer::Continue; } ///< the prompt in front of the line at hand
    virtual void BeforeLine(RunState&) {} ///< each line that has no prompt; may wait, change variables, stop the run
    virtual bool Watches() const { return false; }
    virtual void Watch(RunState&, bool /*last*/) {} ///< behind each line while Watches() is true, and at the end
};

/// Why a macro failed. Line is the index of its line.
struct MacroError
{
    int Line = 0;
    QString Text;           ///< "^" breaks the line
    bool BeforeRun = false; ///< found before the first line ran
};
