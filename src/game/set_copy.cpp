#include "game/set_copy.h"

#include "frame/editor_pane.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "platform/files/paths.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSet>
#include <algorithm>
#include <unistd.h>

namespace {

constexpr qint64 LinkedFrom = 65536; // bytes; below it a copy costs no more than a link

/// What the game writes into a set's folder when somebody edits or plays, by its ending.
constexpr const char* WrittenByGame[] = {"conf", "level", "tape", "sln", "cust", "txt"};

bool IsCopied(const QFileInfo& file)
{
    const QString ending = file.suffix();
    return file.size() < LinkedFrom || std::any_of(std::begin(WrittenByGame), std::end(WrittenByGame), [&](auto* kind) {
               return ending.compare(QLatin1String(kind), Qt::CaseInsensitive) == 0;
           });
}

class SetCopier
{
public:
    explicit SetCopier(const UnsavedTexts& unsaved) : texts(unsaved)
    {
        for (auto text = texts.keyBegin(); text != texts.keyEnd(); ++text)
            names << paths::FileNameOfPath(*text);
    }

    Result<> Folder(const QString& from, const QString& to)
    {
        const QString real = paths::Canonical(from);
        if (inside.contains(real)) // a link to a folder above
            return {};
        inside.insert(real);
        const Result<> done = Entries(from, to);
        inside.remove(real);
        return done;
    }

    CopyCount Count;

private:
    Result<> Entries(const QString& from, const QString& to)
    {
        if (!QDir().mkpath(to))
            return Fail(to, qt_error_string(errno));
        QDirIterator entries(from, QDir::AllEntries | QDir::NoDotAndDotDot);
        while (entries.hasNext()) {
            entries.next();
            const QFileInfo entry = entries.fileInfo();
            const QString target = to + entry.fileName();
            if (++seen > MostSetFiles)
                return Fail(from, QStringLiteral("there are too many files for one level set"));
            const Result<> done = entry.isDir()    ? Folder(entry.filePath() + u'/', target + u'/')
                                  : entry.isFile() ? File(entry, target)
                                                   : Result<>();
            if (!done)
                return done;
        }
        return {};
    }

    Result<> File(const QFileInfo& file, const QString& to)
    {
        if (!IsCopied(file)) {
            ++Count.Linked;
            const QByteArray target = QFile::encodeName(file.canonicalFilePath());
            return symlink(target, QFile::encodeName(to)) == 0 ? Result<>() : Fail(to, qt_error_string(errno));
        }
        ++Count.Copied;
        // A link may have another name than its file; to resolve every path would take most of the time.
        if (file.isSymLink() || names.contains(file.fileName())) {
            const auto text = texts.constFind(paths::Canonical(file.filePath()));
            if (text != texts.cend())
                return paths::WriteScratch(to, *text);
        }
        const auto bytes = paths::ReadWhole(file.filePath(), paths::LargestDocument);
        return bytes ? paths::WriteScratch(to, *bytes) : tl::unexpected(bytes.error());
    }

    const UnsavedTexts& texts;
    QSet<QString> names; ///< of the texts' files
    QSet<QString> inside;
    int seen = 0;
};

/// A file may have gone from the disk while its text stands in a tab.
Result<> WriteLost(const QString& from, const QString& to, const UnsavedTexts& texts)
{
    const QString set = paths::Closed(paths::Canonical(from));
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        if (!text.key().startsWith(set) || QFileInfo::exists(text.key()))
            continue;
        const QString target = to + text.key().mid(set.size());
        QDir().mkpath(paths::FolderOfPath(target));
        if (const Result<> done = paths::WriteScratch(target, text.value()); !done)
            return done;
    }
    return {};
}

} // namespace

UnsavedTexts TextsOfTabs()
{
    UnsavedTexts texts;
    for (int tab = 0; tab < int(Frame.Documents.size()); ++tab) {
        const Document& document = Frame.Documents.at(tab);
        if (HasFile(document))
            texts.insert(paths::Canonical(document.Path), Panes().Pane(tab).FileBytes());
    }
    return texts;
}

Result<CopyCount> CopySet(const QString& from, const QString& to, const UnsavedTexts& texts)
{
    SetCopier copier(texts);
    if (const Result<> done = copier.Folder(from, to); !done)
        return tl::unexpected(done.error());
    if (const Result<> done = WriteLost(from, to, texts); !done)
        return tl::unexpected(done.error());
    return copier.Count;
}
