#pragma once

#include "frame/editor_pane.h"

#include <QObject>
#include <QTimer>

/// Marks the lines in view of the current pane, and some around, that the check or a hint has something to say of:
/// a moment after the last key or turn of the wheel, if the setting LineHints is on.
class LineHintsView : public QObject
{
    Q_OBJECT

public:
    explicit LineHintsView(QObject* parent);

    void Watch(EditorPane& pane);
    /// The words or the lists of images are others.
    void WordsChanged();

private:
    void Look();

    QTimer soon;
};
