#pragma once
#include "platform/result.h"
#include <QImage>
namespace images { struct Picture { QImage Pixels; bool EndsEarly = false; };
inline Result<Picture> Load(const QString& path) { Picture p; p.Pixels = QImage(path); if (p.Pixels.isNull()) return tl::unexpected(Failure{path, QStringLiteral("x")}); return p; } }
