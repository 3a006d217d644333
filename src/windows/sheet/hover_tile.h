#pragma once

#include <QImage>
#include <functional>

class EditorPane;

/// The first tile of the block whose key lies under (line, column) of the current document, for a tool tip. Null
/// without a sheet in the lists, or while it is not decoded yet: the tip is then shown anew when it is.
QImage HoverTile(EditorPane& pane, int line, int column);

/// A sheet of the lists as a whole, for a small picture of it. Null for any other file, or while it is not decoded yet:
/// `later` is called when it is.
QImage ValuePicture(EditorPane& pane, const QString& file, std::function<void()> later);
