#pragma once

#include <QStringView>

/// Does a name fit a pattern in which "*" stands for any text and "?" for one character? Letter case is ignored;
/// "*.*" fits every name.
bool FitsWildcard(QStringView name, QStringView pattern);
