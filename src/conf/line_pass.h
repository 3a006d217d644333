#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <functional>

class DocumentText;

/// Told now and then how many lines a pass has done.
using PassProgress = std::function<void(int linesDone)>;

/// A pass over lines: from the bytes of whole lines (UTF-8, each with its break but the last) to the new bytes.
using LinePass = std::function<QByteArray(QByteArrayView lines, const PassProgress& progress)>;

/// One line of a pass and the break behind it.
struct ByteLine
{
    QByteArrayView Text;  ///< without its break
    QByteArrayView Break; ///< "\r\n", "\n", "\r" or nothing
};

/// The line at `from`; moves `from` behind its break.
ByteLine TakeLine(QByteArrayView bytes, qsizetype& from);

/// Calls visit(line) for every line, the one behind the last break included, and tells the progress.
template <class Visit>
void ForEachLine(QByteArrayView lines, const PassProgress& progress, Visit visit)
{
    constexpr int ProgressLines = 4096;
    qsizetype from = 0;
    for (int done = 1;; ++done) {
        const ByteLine line = TakeLine(lines, from);
        visit(line);
        if (line.Break.isEmpty())
            return;
        if (progress && done % ProgressLines == 0)
            progress(done);
    }
}

/// Progress that repaints the host's bar at most every 50 ms.
PassProgress ThrottledProgress(int maximum);

/// Runs a pass over the whole lines that the selection of a pane touches: one undo step, with the progress bar, the
/// caret at the start of the first line afterwards. A selection that ends in column 0 of a line includes that line.
void RunPassOnSelection(DocumentText& pane, const LinePass& pass);
