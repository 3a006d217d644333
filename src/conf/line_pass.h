#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <functional>

class EditorPane;

/// Told now and then how many lines a pass has done.
using PassProgress = std::function<void(int linesDone)>;

/// A pass over lines: from the bytes of whole lines (UTF-8, their line ends kept) to the new bytes.
using LinePass = std::function<QByteArray(QByteArrayView lines, const PassProgress& progress)>;

/// One line of a pass and the break behind it.
struct ByteLine
{
    QByteArrayView Text;  ///< without its break
    QByteArrayView Break; ///< "\r\n", "\n", "\r" or nothing
};

/// The line at `from`; moves `from` behind its break.
ByteLine TakeLine(QByteArrayView bytes, qsizetype& from);

/// Runs a pass over the whole lines that the selection of a pane touches: one undo step, with the progress bar, the
/// caret at the start of the first line afterwards. A selection that ends in column 0 of a line includes that line.
void RunPassOnSelection(EditorPane& pane, const LinePass& pass);
