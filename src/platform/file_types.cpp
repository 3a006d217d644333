#include "platform/file_types.h"

#include "platform/files/ini_file.h"
#include "platform/files/paths.h"
#include "platform/files/standard_folders.h"
#include "platform/processes/processes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <algorithm>
#include <array>

// A resource of a static library is linked only if somebody asks for it, outside of every namespace.
static void LinkPackaging()
{
    Q_INIT_RESOURCE(packaging);
}

namespace {

using namespace file_types;

struct GroupRow
{
    const char *Program, *Entry;
    std::array<const char*, 3> Kinds;
};
constexpr GroupRow Groups[] = {
    {"gemforge", "gemforge.desktop", {"text/x-rnd-conf", "application/x-gemforge-basic", "application/x-rnd-levzip"}},
    {"Mapglass", "gemforge-mapglass.desktop", {"application/x-rnd-level", nullptr, nullptr}},
};

/// What goes below the desktop's data folder, from the packaged files of the same name.
struct FileRow
{
    const char *Packaged, *Target;
};
constexpr FileRow KindFiles[] = {
    {"gemforge.xml", "mime/packages/gemforge.xml"},
    {"apps/gemforge.svg", "icons/hicolor/scalable/apps/gemforge.svg"},
    {"mimetypes/text-x-rnd-conf.svg", "icons/hicolor/scalable/mimetypes/text-x-rnd-conf.svg"},
    {"mimetypes/application-x-rnd-level.svg", "icons/hicolor/scalable/mimetypes/application-x-rnd-level.svg"},
    {"mimetypes/application-x-gemforge-basic.svg", "icons/hicolor/scalable/mimetypes/application-x-gemforge-basic.svg"},
    {"mimetypes/application-x-rnd-levzip.svg", "icons/hicolor/scalable/mimetypes/application-x-rnd-levzip.svg"},
};

const QString DefaultsSection = QStringLiteral("Default Applications");
const QString FilesSection = QStringLiteral("Files");
const QString BeforeSection = QStringLiteral("Opened Before");

const GroupRow& RowOf(Group group)
{
    return Groups[size_t(group)];
}

QString EntryOf(const GroupRow& row)
{
    return QString::fromLatin1(row.Entry);
}

IniFile DefaultsFile(const Places& places)
{
    return IniFile(places.ConfigHome + QStringLiteral("mimeapps.list"));
}

IniFile Memory(const Places& places)
{
    return IniFile(places.ConfigHome + QStringLiteral("gemforge/file_types.ini"));
}

QByteArray Packaged(const QString& name)
{
    LinkPackaging();
    QFile file(QStringLiteral(":/packaging/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The packaged entry starts the program by its name alone, as an installed one may.
QByteArray EntryFor(const GroupRow& row, const QString& program)
{
    const QByteArray byName = "Exec=" + QByteArray(row.Program) + ' ';
    const QByteArray byPath = "Exec=" + ExecWord(program).toUtf8() + ' ';
    return Packaged(EntryOf(row)).replace(byName, byPath);
}

Result<> WriteRemembered(IniFile& memory, const Places& places, const QString& target, const QByteArray& bytes)
{
    const QString path = places.DataHome + target;
    if (!folders::MakePrivate(paths::FolderOfPath(path)))
        return Fail(path, qt_error_string(errno));
    if (const Result<> noted = memory.Write(FilesSection, target, QStringLiteral("1")); !noted)
        return noted;
    return paths::WriteWhole(path, bytes);
}

/// The desktop's own tools make its look-up tables from the files.
Result<> Refresh(const Places& places)
{
    struct Tool
    {
        const char *Name, *Folder;
    };
    constexpr Tool Tools[] = {{"update-mime-database", "mime"}, {"update-desktop-database", "applications"}};
    for (const Tool& tool : Tools) {
        const QString name = QString::fromLatin1(tool.Name);
        const QString folder = places.DataHome + QString::fromLatin1(tool.Folder);
        const QString program = QStandardPaths::findExecutable(name);
        if (program.isEmpty())
            return Fail(name, QStringLiteral("this program of the desktop is not installed"));
        if (!QDir(folder).exists())
            continue;
        const auto ran = processes::RunAndWait(program, {folder});
        if (!ran)
            return tl::unexpected(ran.error());
        if (ran->ExitCode != 0 || ran->Crashed)
            return Fail(name, QString::fromUtf8(ran->Errors).trimmed());
    }
    return {};
}

Result<> OpenWith(const GroupRow& row, const Places& places, IniFile& memory)
{
    IniFile defaults = DefaultsFile(places);
    defaults.OpenBatch();
    Result<> outcome;
    for (const char* kind : row.Kinds) {
        if (!kind || !outcome)
            break;
        const QString key = QString::fromLatin1(kind);
        const QString before = defaults.Read(DefaultsSection, key);
        if (before != IniFile::NotFound && !before.startsWith(EntryOf(row)))
            outcome = memory.Write(BeforeSection, key, before);
        if (outcome)
            outcome = defaults.Write(DefaultsSection, key, EntryOf(row) + u';');
    }
    const Result<> written = defaults.CloseBatch();
    return outcome ? written : outcome;
}

/// key=value items of a section as pairs.
QList<std::pair<QString, QString>> Items(const QString& section)
{
    QList<std::pair<QString, QString>> items;
    for (const QString& item : section.split(QChar(0), Qt::SkipEmptyParts))
        items << std::pair(item.section(u'=', 0, 0), item.section(u'=', 1));
    return items;
}

bool IsOurEntry(const QString& opener)
{
    return std::ranges::any_of(Groups, [&](const GroupRow& row) { return opener.startsWith(EntryOf(row)); });
}

Result<> OpenAsBefore(const Places& places, const IniFile& memory)
{
    IniFile defaults = DefaultsFile(places);
    QString kept;
    for (const auto& [key, opener] : Items(defaults.ReadSection(DefaultsSection))) {
        const QString before = memory.Read(BeforeSection, key);
        if (!IsOurEntry(opener))
            kept += key + u'=' + opener + QChar(0);
        else if (before != IniFile::NotFound)
            kept += key + u'=' + before + QChar(0);
    }
    return defaults.WriteSection(DefaultsSection, kept);
}

} // namespace

namespace file_types {

Places OfUser()
{
    const auto base = [](QStandardPaths::StandardLocation place) {
        return paths::Closed(QStandardPaths::writableLocation(place));
    };
    return {base(QStandardPaths::GenericDataLocation), base(QStandardPaths::GenericConfigLocation),
            paths::Closed(QCoreApplication::applicationDirPath())};
}

QString ProgramOf(Group group, const Places& places)
{
    return places.Programs + QString::fromLatin1(RowOf(group).Program);
}

QStringList KindsOf(Group group)
{
    QStringList kinds;
    for (const char* kind : RowOf(group).Kinds)
        if (kind)
            kinds << QString::fromLatin1(kind);
    return kinds;
}

Result<> Associate(Group group, const Places& places)
{
    const QString program = ProgramOf(group, places);
    if (!paths::FileExists(program))
        return Fail(program, qt_error_string(ENOENT));
    const GroupRow& row = RowOf(group);
    IniFile memory = Memory(places);
    if (!folders::MakePrivate(paths::FolderOfPath(memory.Path())))
        return Fail(memory.Path(), qt_error_string(errno));
    for (const FileRow& file : KindFiles)
        if (const Result<> written = WriteRemembered(memory, places, QString::fromLatin1(file.Target),
                                                     Packaged(QString::fromLatin1(file.Packaged)));
            !written)
            return written;
    const QString entry = QStringLiteral("applications/") + EntryOf(row);
    if (const Result<> written = WriteRemembered(memory, places, entry, EntryFor(row, program)); !written)
        return written;
    if (const Result<> set = OpenWith(row, places, memory); !set)
        return set;
    return Refresh(places);
}

bool Associated(const Places& places)
{
    return !Memory(places).ReadSection(FilesSection).isEmpty();
}

Result<> TakeBack(const Places& places)
{
    if (!Associated(places))
        return {};
    IniFile memory = Memory(places);
    if (const Result<> back = OpenAsBefore(places, memory); !back)
        return back;
    for (const auto& [target, mark] : Items(memory.ReadSection(FilesSection))) {
        QFile file(places.DataHome + target);
        if (file.exists() && !file.remove())
            return Fail(file.fileName(), file.errorString());
    }
    for (const QString& section : {FilesSection, BeforeSection})
        if (const Result<> forgotten = memory.WriteSection(section, {}); !forgotten)
            return forgotten;
    return Refresh(places);
}

/// In double quotes, with the characters that a shell would mind escaped; the entry's own escapes on top.
QString ExecWord(const QString& path)
{
    QString word;
    for (const QChar c : path) {
        if (QStringLiteral("\"`$\\").contains(c))
            word += u'\\';
        word += c;
        if (c == u'%')
            word += c;
    }
    return u'"' + word.replace(u'\\', QStringLiteral("\\\\")) + u'"';
}

} // namespace file_types
