#pragma once

#include "frame/editor_pane.h"

#include <QTimer>

/// Marks in the margin of the code, anew whenever its user has stopped typing for a moment. Long code is looked at
/// beside the user's work.
class LiveMarks : public QObject
{
    Q_OBJECT

public:
    explicit LiveMarks(EditorPane& code);

    /// The caret goes to the next marked line, round the ends of the code.
    void Goto(bool forward);

signals:
    void Settled();                 ///< nobody has typed for a moment
    void Said(const QString& text); ///< of the line that the caret stands in; empty: nothing

private:
    void Look();
    void LookBeside(const QStringList& lines);
    void Show(std::vector<LineMark> found);
    void SayCaretLine();

    EditorPane& code;
    QTimer soon;
    std::vector<LineMark> marks;
    int version = 0; ///< of the code: what was found in another one is of no use
    int marked = 0;  ///< version that the marks are of
};

/// All lines of a text.
QStringList LinesOfText(const DocumentText& text);
