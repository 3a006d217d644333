#include "windows/macro/live_marks.h"

#include "frame/frame_state.h"
#include "macro/source_marks.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThreadPool>
#include <algorithm>

namespace {

constexpr int PauseBeforeMarks = 250; // milliseconds without a key
constexpr qsizetype LongCode = 1000;  // lines

} // namespace

QStringList LinesOfText(const DocumentText& text)
{
    return text.Text().split(QStringLiteral("\r\n"));
}

LiveMarks::LiveMarks(EditorPane& ofWorkbench) : code(ofWorkbench)
{
    soon.setSingleShot(true);
    soon.setInterval(PauseBeforeMarks);
    code.ShowLineMarks(true); // breakpoints stand there too
    connect(&soon, &QTimer::timeout, this, &LiveMarks::Look);
    connect(&code, &DocumentText::TextChanged, this, [this] {
        ++version;
        soon.start();
    });
    connect(&code, &DocumentText::SelectionChanged, this, &LiveMarks::SayCaretLine);
}

void LiveMarks::Look()
{
    soon.stop();
    emit Settled();
    if (Frame.Settings.LineHints != 1)
        return;
    const QStringList lines = LinesOfText(code);
    if (lines.size() > LongCode)
        LookBeside(lines);
    else
        Show(MarksOfSource(lines));
}

void LiveMarks::LookBeside(const QStringList& lines)
{
    QThreadPool::globalInstance()->start([lines, asked = version, self = QPointer(this)] {
        std::vector<LineMark> found = MarksOfSource(lines);
        const auto show = [self, asked, found = std::move(found)] {
            if (self && self->version == asked)
                self->Show(found);
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), show, Qt::QueuedConnection);
    });
}

void LiveMarks::Show(std::vector<LineMark> found)
{
    marks = std::move(found);
    marked = version;
    code.SetLineMarks(marks);
    SayCaretLine();
}

void LiveMarks::SayCaretLine()
{
    QStringList said;
    if (marked == version) // else lines may have moved
        for (const LineMark& mark : std::ranges::equal_range(marks, code.CaretLine(), {}, &LineMark::Line))
            said << QString(mark.Message).replace(u'\n', QLatin1String("   "));
    emit Said(said.join(QStringLiteral("   ")));
}

void LiveMarks::Goto(bool forward)
{
    if (marked != version && Frame.Settings.LineHints == 1)
        Show(MarksOfSource(LinesOfText(code)));
    if (marks.empty()) {
        emit Said(QStringLiteral("No line of this macro has a mark"));
        return;
    }
    const int caret = code.CaretLine();
    const auto behind = std::ranges::upper_bound(marks, caret, {}, &LineMark::Line);
    const auto at = std::ranges::lower_bound(marks, caret, {}, &LineMark::Line);
    const LineMark& wanted = forward ? (behind == marks.end() ? marks.front() : *behind)
                                     : (at == marks.begin() ? marks.back() : *std::prev(at));
    code.FocusPane();
    code.ExecuteCmd(CmdGotoLine, wanted.Line);
    SayCaretLine();
}
