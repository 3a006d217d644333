#pragma once

#include "platform/processes/counted_turn.h"
#include "platform/result.h"

#include <QByteArray>
#include <QPoint>
#include <QString>
#include <functional>

class EditorPane;

/// What a macro can do beyond changing the text, told from its source.
enum MacroPower : int {
    TouchesFiles = 1,
    StartsPrograms = 2,
    SendsKeys = 4, ///< keys and mouse, to whatever program
    SteersWindows = 8,
    WritesLevels = 16,
    UsesRegistry = 32
};

/// A macro that has not run here yet.
struct NewMacro
{
    QString Name;         ///< of its file
    int Powers = 0;       ///< of MacroPower
    bool CanCopy = false; ///< it may run on a copy of the text first
};
enum class NewMacroChoice { Run, RunOnCopy, Cancel };

/// A text before and after a run on a copy.
struct MacroChanges
{
    QString Name;
    QByteArray Before, After; ///< UTF-8
};

enum class ArchiveUse { Zip, Unzip };
using ArchiveWork = std::function<Result<>(const CountedTurn& turn)>;

/// What the windows do for a start of a macro. What is not installed is answered with Run, and with a text taken.
struct MacroPorts
{
    std::function<NewMacroChoice(const NewMacro&)> AskAboutNew;
    std::function<bool(const MacroChanges&)> TakeChanges;
    /// Does the work on an archive under a window that asks for patience. Not installed: without one.
    std::function<Result<>(ArchiveUse use, const ArchiveWork& work)> UnderZipWindow;
    std::function<quint64()> MainWindow; ///< its handle
    std::function<void(bool)> ShowMainWindow;
    std::function<QPoint(EditorPane&)> TextOrigin; ///< of a pane's text on the screen, in pixels
    std::function<QString()> SelectedMedia;        ///< full path of the selected entry of the media list in front
    /// Shows the open level's map under a caption until it is closed; the palette is named by its file.
    std::function<void(const QString& caption, const QString& palette)> ShowMap;
    /// Runs a program that shows a level file and waits for its end.
    std::function<Result<>(const QString& program, const QString& file)> ViewLevel;
    QString RegistryFile; ///< where the keys of the registry are kept; empty: in the user's configuration
    QString KnownFile;    ///< where the hashes of macros stand that may run; empty: nowhere
};
extern MacroPorts MacroWindows;
void ResetMacroPorts();
