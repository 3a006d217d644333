#pragma once

#include <QImage>

class EditorPane;

/// The first tile of the block whose key lies under (line, column) of the current document, for a tool tip. Null
/// without a sheet in the lists, or while it is not decoded yet: the tip is then shown anew when it is.
QImage HoverTile(EditorPane& pane, int line, int column);
