#include "platform/files/file_attributes.h"

#include <QFile>
#include <array>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace {

constexpr const char* AttributeName = "user.DOSATTRIB";
constexpr int KeptAttributes = AttributeHidden | AttributeSystem | AttributeArchive;

/// What the extended attribute says: "0x" and hexadecimal digits.
int KeptOf(const QByteArray& path)
{
    std::array<char, 32> text{};
    const ssize_t size = getxattr(path.constData(), AttributeName, text.data(), text.size());
    if (size <= 0)
        return 0;
    bool fine = false;
    constexpr int Sixteen = 16;
    const int kept = QByteArray(text.data(), size).trimmed().toInt(&fine, Sixteen);
    return fine ? kept & KeptAttributes : 0;
}

tl::unexpected<Failure> SystemFailure(const QString& path)
{
    return Fail(path, QString::fromLocal8Bit(std::strerror(errno)));
}

} // namespace

int AttributesOf(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat found = {};
    if (stat(name.constData(), &found) != 0)
        return 0;
    const int folder = S_ISDIR(found.st_mode) ? AttributeFolder : 0;
    const int readOnly = (found.st_mode & S_IWUSR) ? 0 : AttributeReadOnly;
    const int told = folder | readOnly | KeptOf(name);
    return told ? told : AttributeNormal;
}

Result<> SetAttributes(const QString& path, int attributes)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat found = {};
    if (stat(name.constData(), &found) != 0)
        return SystemFailure(path);
    // Without write permission the extended attribute could not be changed either.
    if (chmod(name.constData(), found.st_mode | S_IWUSR) != 0)
        return SystemFailure(path);
    const int kept = attributes & KeptAttributes;
    const QByteArray text = "0x" + QByteArray::number(kept, 16);
    const bool had = KeptOf(name) != 0;
    if ((kept || had) && setxattr(name.constData(), AttributeName, text.constData(), size_t(text.size()), 0) != 0)
        return SystemFailure(path);
    constexpr mode_t AnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    if ((attributes & AttributeReadOnly) && chmod(name.constData(), found.st_mode & ~AnyWrite) != 0)
        return SystemFailure(path);
    return {};
}
