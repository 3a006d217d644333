#pragma once

#include "frame/editor_pane.h"

#include <QKeyCombination>
#include <memory>

class QWidget;

/// A text pane on the editor component. The pane owns its widget until a parent or layout takes it.
std::unique_ptr<EditorPane> MakePane(QWidget* parent = nullptr);

/// The widget to lay out and show.
QWidget* WidgetOf(EditorPane& pane);

/// Keeps panes fast in huge files by hiding their text from assistive technology. Call once, before the first pane;
/// `tellText` true leaves screen readers the text (and the cost).
void SetUpAccessibility(bool tellText);

/// Does a pane do something of its own with this key?
bool IsKeyOfText(QKeyCombination key);
