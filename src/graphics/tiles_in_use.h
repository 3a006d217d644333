#pragma once

#include <QList>
#include <QPoint>

class DocumentText;

/// Tiles (column, row) of the sheet on show that the blocks of a text use, each once. `image`: the sheet's name in
/// the text, letter case ignored; the block with its main line at `without` is left out.
QList<QPoint> TilesInUse(const DocumentText& pane, const QString& image, int without);
