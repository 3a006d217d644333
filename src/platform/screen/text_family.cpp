#include "platform/screen/text_family.h"

#include <QFontDatabase>

QString TextFamily(const QString& name)
{
    for (const QString& family : {name, QStringLiteral("Liberation Mono")})
        if (QFontDatabase::hasFamily(family))
            return family;
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}
