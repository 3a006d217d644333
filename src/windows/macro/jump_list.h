#pragma once

#include "macro/source_names.h"

#include <QComboBox>

class EditorPane;

/// Labels and subs of the code: shows the one that the caret stands behind, and goes to the one that is chosen.
class JumpList : public QComboBox
{
    Q_OBJECT

public:
    JumpList(EditorPane& code, QWidget* parent);

    void Refresh(); ///< the code has changed
    /// To what the word at the caret names; if that is no label or sub, the list opens.
    void GoOrAsk();

private:
    void FollowCaret();
    void GoTo(int line);
    const SourcePlace* PlaceAtCaret() const;

    EditorPane& code;
    std::vector<SourcePlace> places;
};
