#include "services/write_resource.h"

#include "platform/files/paths.h"

#include <QFile>

Result<QByteArray> ResourceBytes(const QString& name, const QString& kind)
{
    QFile resource(QStringLiteral(":/") + kind.toLower() + QLatin1Char('/') + name);
    if (!resource.open(QIODevice::ReadOnly))
        return Fail(resource.fileName(), resource.errorString());
    return resource.readAll();
}

Result<> WriteResource(const QString& name, const QString& kind, const QString& target)
{
    return ResourceBytes(name, kind).and_then([&](const QByteArray& bytes) {
        return paths::WriteWhole(target, bytes);
    });
}
