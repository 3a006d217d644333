#pragma once

#include <QSet>
#include <QtGlobal>

namespace processes {

/// A process, what it has started, what those have started, and so on, as they run now. A process whose parent has
/// ended is nobody's any more.
QSet<qint64> Tree(qint64 process);

} // namespace processes
