#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <functional>

class DocumentText;
class RunScope;

/// Told now and then how many lines a pass has done. False: the pass is to stop, and its result counts for nothing.
using PassProgress = std::function<bool(int linesDone)>;

/// A pass over lines: from the bytes of whole lines (UTF-8, each with its break but the last) to the new bytes.
using LinePass = std::function<QByteArray(QByteArrayView lines, const PassProgress& progress)>;

/// One line of a pass and the break after it.
struct ByteLine
{
    QByteArrayView Text;  ///< without its break
    QByteArrayView Break; ///< "\r\n", "\n", "\r" or nothing
};

/// The line at `from`; moves `from` past its break.
ByteLine TakeLine(QByteArrayView bytes, qsizetype& from);

/// Calls visit(line) for every line, the one after the last break included, and tells the progress, which may stop it.
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
        if (progress && done % ProgressLines == 0 && !progress(done))
            return;
    }
}

/// Progress that repaints the host's bar at most every 50 ms and stops with the run.
PassProgress ThrottledProgress(int maximum, RunScope& run);

/// Runs a pass, `name` in the run panel, over the whole lines that the selection of a text touches: one undo step, with
/// the progress bar, the caret at the start of the first line afterwards. One of several lines that ends in column 0
/// has nothing of that last line. A pass that is stopped leaves the text as it was, as the status bar says.
void RunPassOnSelection(DocumentText& text, const QString& name, const LinePass& pass);
