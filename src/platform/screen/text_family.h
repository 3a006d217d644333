#pragma once

#include <QString>

/// The font family that texts of fixed width show in: `name`, or what stands in for one that is not installed.
QString TextFamily(const QString& name);
