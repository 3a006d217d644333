#pragma once

#include <QStringList>

/// "Text files (*.txt)|*.txt|All|*" as the file dialog takes it: one "Name (*.a *.b)" a pair. Patterns may be parted
/// by ";" or ",". A name that already ends with its patterns in brackets shows them once. An empty or odd last part
/// is left out.
QStringList DialogFilters(const QString& pairs);
