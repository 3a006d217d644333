#pragma once

#include "frame/editor_pane.h"

#include <QPointer>

class QWidget;

/// The pane that a dialog beside the text works on. One opened for the current tab follows the user to other tabs.
class DialogTarget
{
public:
    void Set(EditorPane& pane);
    EditorPane* Pane() const; ///< null when the pane has gone
    bool FollowsTabs() const { return follows; }

private:
    QPointer<EditorPane> fixed;
    bool follows = false;
};

/// Moves a dialog into the upper right corner of the pane.
void PlaceBeside(QWidget& dialog, EditorPane& pane);

/// Moves a dialog away if it covers the line with the caret.
void UncoverCaret(QWidget& dialog, EditorPane& pane);
