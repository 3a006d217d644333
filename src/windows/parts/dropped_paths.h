#pragma once

#include <QStringList>

class QDropEvent;
class QMimeData;

/// Paths of the local files that are dragged; empty if there are none.
QStringList LocalFiles(const QMimeData& data);

/// Whatever the source proposes: a source that is told "moved" may remove its file.
void AcceptAsCopy(QDropEvent& event);
