#include "macro/language/run_paths.h"

#include "platform/files/paths.h"

#include <QDir>
#include <QFileInfo>

void RunPaths::SetFolder(const QString& path)
{
    folder = paths::Closed(QDir::cleanPath(path));
}

QString RunPaths::Resolve(const QString& told) const
{
    if (told.isEmpty() || told.contains(QChar(u'\0'))) // the system would see a shorter name
        return {};
    const QString inner = paths::Inside(told);
    const QString kept = trueCase.value(inner);
    if (!kept.isEmpty())
        return kept;
    if (told.startsWith(u'\\')) {
        const QString below = paths::Existing(folder + inner.sliced(1));
        if (!below.isEmpty())
            return below;
    }
    const QString whole = QDir::isRelativePath(inner) ? QString(folder + inner) : inner;
    const QString existing = paths::Existing(whole);
    if (!existing.isEmpty())
        return existing;
    // Nothing new goes into the root itself: that was an entry of the current folder.
    const bool ofRoot = told.startsWith(u'\\') && paths::FolderOfPath(whole) == QLatin1String("/");
    return paths::ForWriting(ofRoot ? folder + whole.sliced(1) : whole);
}

QString RunPaths::ResolveToRemove(const QString& told) const
{
    QString inner = paths::Inside(told);
    while (inner.size() > 1 && inner.endsWith(u'/'))
        inner.chop(1);
    const QString last = paths::FileNameOfPath(inner);
    if (told.contains(QChar(u'\0')) || last.isEmpty() || last == QLatin1String(".") || last == QLatin1String(".."))
        return {};
    if (told.startsWith(u'\\')) {
        while (inner.startsWith(u'/'))
            inner.remove(0, 1);
        const QString below = paths::Existing(folder + inner);
        return below.isEmpty() ? paths::ForWriting(folder + inner) : below;
    }
    const QString kept = trueCase.value(inner);
    // Told by a tag in lower case, or written just so? Both stand there.
    if (!kept.isEmpty() && kept != inner && QFileInfo::exists(inner))
        return {};
    return Resolve(inner);
}

bool RunPaths::Exists(const QString& told) const
{
    const QString path = Resolve(told);
    return paths::FileExists(path) || paths::FolderExists(path);
}

QString RunPaths::Lowered(const QString& path)
{
    QString lower = path.toLower();
    if (lower != path)
        trueCase.insert(lower, path);
    return lower;
}
