#include "platform/files/paths.h"

#include "platform/files/file_steps.h"

#include <QDir>
#include <QFile>
#include <QStorageInfo>
#include <QStringList>
#include <dirent.h>
#include <memory>
#include <unistd.h>

namespace {

bool Facts(const QString& path, FileFacts& facts)
{
    return !path.isEmpty() && stat(QFile::encodeName(path), &facts) == 0;
}

bool IsThere(const QString& path)
{
    FileFacts facts{};
    return Facts(path, facts);
}

struct NameMatch
{
    QString Name; ///< empty if none or more than one fits
    int Count = 0;
};

/// Names in `folder` that are `name` but for letter case.
NameMatch LookUp(const QString& folder, const QString& name)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> open(
        opendir(folder.isEmpty() ? "." : QFile::encodeName(folder).constData()), closedir);
    NameMatch match;
    if (!open)
        return match;
    const QString wanted = name.toCaseFolded();
    while (const dirent* entry = readdir(open.get())) {
        const QString found = QFile::decodeName(entry->d_name);
        if (found.toCaseFolded() == wanted) {
            match.Name = ++match.Count == 1 ? found : QString();
        }
    }
    return match;
}

/// A path walked from its first folder on: what of it exists, as it stands on disk, and the rest as it was given.
struct Walk
{
    QString Known;
    QString Rest;
};

Walk WalkDown(const QString& inner)
{
    Walk walk{inner.startsWith(QLatin1Char('/')) ? QStringLiteral("/") : QString(), {}};
    const QStringList names = inner.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    const bool closed = inner.endsWith(QLatin1Char('/'));
    for (qsizetype i = 0; i < names.size(); ++i) {
        const bool last = i + 1 == names.size();
        const QString end = last && !closed ? QString() : QStringLiteral("/");
        QString next = walk.Known + names.at(i) + end;
        if (!IsThere(next)) {
            const QString name = LookUp(walk.Known, names.at(i)).Name;
            next = walk.Known + name + end;
            if (name.isEmpty() || !IsThere(next)) {
                walk.Rest = names.mid(i).join(QLatin1Char('/')) + (closed ? QStringLiteral("/") : QString());
                return walk;
            }
        }
        walk.Known = next;
    }
    return walk;
}

QString RealPath(const QString& path)
{
    const std::unique_ptr<char, void (*)(void*)> real(realpath(QFile::encodeName(path), nullptr), free);
    return real ? QFile::decodeName(real.get()) : QString();
}

/// On a file system without letter case one file has many spellings; the one in its folder's list counts. Whether a
/// path lies on such a one shows by asking for it in the other case.
QString AsListed(const QString& real)
{
    QString swapped = real;
    for (QChar& letter : swapped)
        letter = letter.isUpper() ? letter.toLower() : letter.toUpper();
    FileFacts facts{}, other{};
    if (!Facts(real, facts) || !Facts(swapped, other) || facts.st_ino != other.st_ino || facts.st_dev != other.st_dev)
        return real;
    QString listed;
    for (const QString& name : real.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        const QString found = LookUp(listed + QLatin1Char('/'), name).Name;
        listed += QLatin1Char('/') + (found.isEmpty() ? name : found);
    }
    return listed.isEmpty() ? real : listed;
}

qsizetype LastSeparator(const QString& path)
{
    return std::max(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
}

/// As told, in our form, or by its names whatever their case, as far as something stands there.
Walk FindPath(const QString& told)
{
    if (IsThere(told))
        return {told, {}};
    const QString inner = paths::Inside(told);
    return IsThere(inner) ? Walk{inner, {}} : WalkDown(inner);
}

} // namespace

namespace paths {

QString Inside(const QString& told)
{
    QString inner = told;
    inner.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return inner.startsWith(QLatin1String("~/")) ? QDir::homePath() + QStringView(inner).mid(1) : inner;
}

QString Existing(const QString& told)
{
    const Walk walk = FindPath(told);
    return walk.Rest.isEmpty() ? walk.Known : QString();
}

QString ForWriting(const QString& told)
{
    const Walk walk = FindPath(told);
    return walk.Known + walk.Rest;
}

QString Canonical(const QString& path)
{
    if (path.isEmpty())
        return {};
    const QString found = ForWriting(path);
    // What exists is resolved by the system, since ".." goes up from where a link leads; only the rest is cleaned.
    QString known = QDir::isAbsolutePath(found) ? found : QDir::currentPath() + u'/' + found;
    QString rest;
    QString real = RealPath(known);
    while (real.isEmpty() && known.size() > 1) {
        const qsizetype end = known.lastIndexOf(QLatin1Char('/'));
        rest = QStringView(known).mid(end + 1) + (rest.isEmpty() ? QString() : u'/' + rest);
        known.truncate(end);
        real = RealPath(known.isEmpty() ? QStringLiteral("/") : known);
    }
    return QDir::cleanPath(AsListed(real) + u'/' + rest);
}

bool FileExists(const QString& told)
{
    FileFacts facts{};
    return Facts(Existing(told), facts) && !S_ISDIR(facts.st_mode);
}

bool FolderExists(const QString& told)
{
    FileFacts facts{};
    return Facts(Existing(told), facts) && S_ISDIR(facts.st_mode);
}

QString Root(const QString& path)
{
    QString known = Canonical(path);
    while (!known.isEmpty() && !IsThere(known))
        known.truncate(known.lastIndexOf(QLatin1Char('/')));
    const QString root = known.isEmpty() ? QString() : QStorageInfo(known).rootPath();
    return root.isEmpty() ? QStringLiteral("/") : Closed(root);
}

QString Closed(const QString& folder)
{
    return folder.isEmpty() || folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
}

QString FolderOfPath(const QString& path)
{
    return path.left(LastSeparator(path) + 1);
}

QString FileNameOfPath(const QString& path)
{
    return path.mid(LastSeparator(path) + 1);
}

QString ParentName(const QString& path)
{
    const QString folder = FolderOfPath(path);
    return FileNameOfPath(folder.chopped(folder.isEmpty() ? 0 : 1));
}

QString Native(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

void ChangeToFolder(const QString& path)
{
    const QString found = Existing(path);
    if (!found.isEmpty())
        QDir::setCurrent(FolderOfPath(found));
}

} // namespace paths
