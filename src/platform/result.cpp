#include "platform/result.h"

QString Failure::Text() const
{
    return Path.isEmpty() ? Reason : Path + QStringLiteral("^^") + Reason;
}
