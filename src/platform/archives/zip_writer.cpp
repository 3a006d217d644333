#include "platform/archives/zip_writer.h"

#include "platform/archives/zip_archive.h"
#include "platform/archives/zip_sources.h"
#include "platform/files/whole_file.h"

#include <QFile>
#include <memory>
#include <optional>
#include <zip.h>

namespace {

constexpr zip_uint32_t BestLevel = 9;
constexpr int ProgressSteps = 1000;
constexpr mode_t PlainFolder = S_IFDIR | 0755;
/// What a zip archive of no entries consists of: the record of its end.
const QByteArray EndRecord = QByteArrayLiteral("PK\5\6") + QByteArray(18, '\0');

/// What an archive in work knows of itself.
struct Work
{
    zip* Archive;
    const ZipArchive* Old;
    Failure Why; ///< set by what has more to say than the library
};

bool CopyExtraFields(const Work& work, zip_uint64_t from, zip_uint64_t to)
{
    for (const zip_flags_t place : {ZIP_FL_CENTRAL, ZIP_FL_LOCAL}) {
        const zip_int16_t count = zip_file_extra_fields_count(work.Old->Handle(), from, place);
        for (zip_int16_t field = 0; field < count; ++field) {
            zip_uint16_t id = 0, size = 0;
            const zip_uint8_t* const bytes =
                zip_file_extra_field_get(work.Old->Handle(), from, zip_uint16_t(field), &id, &size, place);
            if (zip_file_extra_field_set(work.Archive, to, id, ZIP_EXTRA_FIELD_NEW, bytes, size, place) != 0)
                return false;
        }
    }
    return true;
}

bool CopyComment(const Work& work, zip_uint64_t from, zip_uint64_t to)
{
    zip_uint32_t size = 0;
    const char* const comment = zip_file_get_comment(work.Old->Handle(), from, &size, ZIP_FL_ENC_GUESS);
    return !comment || size == 0 ||
           zip_file_set_comment(work.Archive, to, comment, zip_uint16_t(size), ZIP_FL_ENC_GUESS) == 0;
}

/// How an entry's bytes go into the archive, and what is said about it there.
struct Adding
{
    zip_source_t* Source = nullptr;
    zip_int32_t Method = ZIP_CM_DEFAULT;
    std::optional<time_t> Changed = {};
    zip_uint8_t System = ZIP_OPSYS_UNIX;
    zip_uint32_t Attributes = zip_uint32_t(S_IFREG | 0644) << 16;
};

Adding Prepared(Work& work, const KeptEntry& kept)
{
    zip* const from = work.Old->Handle();
    const auto index = zip_uint64_t(kept.Entry);
    Adding adding;
    zip_stat_t facts;
    zip_stat_init(&facts);
    if (zip_stat_index(from, index, 0, &facts) == 0) {
        adding.Method = facts.comp_method;
        adding.Changed = facts.mtime;
    }
    zip_file_get_external_attributes(from, index, 0, &adding.System, &adding.Attributes);
    adding.Source = zip_source_zip(work.Archive, from, index, ZIP_FL_COMPRESSED, 0, -1);
    if (!adding.Source)
        work.Why = {work.Old->Path(), QString::fromUtf8(zip_strerror(work.Archive))};
    return adding;
}

Adding Prepared(Work& work, const PackedFile& file)
{
    Adding adding;
    FileFacts facts{};
    int error = Steps().Stat(QFile::encodeName(file.Path), &facts) == 0 ? 0 : errno;
    if (!error && !S_ISREG(facts.st_mode))
        error = S_ISDIR(facts.st_mode) ? EISDIR : ENODEV;
    if (error) {
        work.Why = {file.Path, qt_error_string(error)};
        return adding;
    }
    adding.Attributes = zip_uint32_t(facts.st_mode) << 16;
    adding.Source = zip_sources::OfFile(file.Path, facts, work.Why);
    return adding;
}

Adding Prepared(Work& work, const QByteArray& bytes)
{
    Adding adding;
    adding.Source = zip_source_buffer(work.Archive, bytes.constData(), zip_uint64_t(bytes.size()), 0);
    return adding;
}

bool AddFolder(const Work& work, const QByteArray& name)
{
    const zip_int64_t at = zip_dir_add(work.Archive, name, ZIP_FL_ENC_UTF_8);
    return at >= 0 && zip_file_set_external_attributes(work.Archive, zip_uint64_t(at), 0, ZIP_OPSYS_UNIX,
                                                       zip_uint32_t(PlainFolder) << 16) == 0;
}

bool Add(Work& work, const ZipPart& part)
{
    const QByteArray name = part.Name.toUtf8();
    if (std::holds_alternative<EmptyFolder>(part.From))
        return AddFolder(work, name);
    const Adding adding = std::visit(
        [&]<class From>(const From& from) {
            if constexpr (std::is_same_v<From, EmptyFolder>)
                return Adding();
            else
                return Prepared(work, from);
        },
        part.From);
    if (!adding.Source)
        return false;
    const zip_int64_t added = zip_file_add(work.Archive, name, adding.Source, ZIP_FL_ENC_UTF_8);
    if (added < 0) {
        zip_source_free(adding.Source);
        return false;
    }
    const auto at = zip_uint64_t(added);
    const auto* const kept = std::get_if<KeptEntry>(&part.From);
    return zip_set_file_compression(work.Archive, at, adding.Method, BestLevel) == 0 &&
           zip_file_set_external_attributes(work.Archive, at, 0, adding.System, adding.Attributes) == 0 &&
           (!adding.Changed || zip_file_set_mtime(work.Archive, at, *adding.Changed, 0) == 0) &&
           (!kept ||
            (CopyExtraFields(work, zip_uint64_t(kept->Entry), at) && CopyComment(work, zip_uint64_t(kept->Entry), at)));
}

/// The library says after each piece how far it is, and asks whether to go on.
struct Reporter
{
    const CountedTurn& Turn;
    int Done = 0;
    bool Stopped = false;

    void Watch(zip* archive)
    {
        if (!Turn)
            return;
        zip_register_progress_callback_with_state(
            archive, 1.0 / ProgressSteps,
            [](zip*, double done, void* self) { static_cast<Reporter*>(self)->Done = int(done * ProgressSteps); },
            nullptr, this);
        zip_register_cancel_callback_with_state(
            archive,
            [](zip*, void* self) {
                auto& reporter = *static_cast<Reporter*>(self);
                reporter.Stopped = reporter.Stopped || !reporter.Turn(reporter.Done, ProgressSteps);
                return int(reporter.Stopped);
            },
            nullptr, this);
    }
};

Result<> Fill(Work& work, const QString& path, const std::vector<ZipPart>& parts)
{
    for (const ZipPart& part : parts)
        if (!Add(work, part))
            return tl::unexpected(
                work.Why.Reason.isEmpty() ? Failure{path, QString::fromUtf8(zip_strerror(work.Archive))} : work.Why);
    if (work.Old) {
        int size = 0;
        const char* const comment = zip_get_archive_comment(work.Old->Handle(), &size, ZIP_FL_ENC_GUESS);
        if (comment && size > 0)
            zip_set_archive_comment(work.Archive, comment, zip_uint16_t(size));
    }
    return {};
}

Result<> Close(Work& work, std::unique_ptr<zip, void (*)(zip*)>& archive, const QString& path, const CountedTurn& turn)
{
    Reporter reporter{turn};
    reporter.Watch(work.Archive);
    if (zip_close(work.Archive) == 0) {
        (void)archive.release();
        return {};
    }
    if (reporter.Stopped)
        return Stopped(path);
    return tl::unexpected(work.Why.Reason.isEmpty() ? Failure{path, QString::fromUtf8(zip_strerror(work.Archive))}
                                                    : work.Why);
}

} // namespace

Result<> WriteZip(const QString& path, const std::vector<ZipPart>& parts, const ZipArchive* old,
                  const CountedTurn& turn)
{
    WholeFile file;
    if (Result<> opened = file.Open(path); !opened)
        return opened;
    if (parts.empty())
        return file.CommitAs(EndRecord);
    Work work{nullptr, old, {}};
    zip_source_t* const target = zip_sources::Into(file, work.Why);
    zip_error_t error;
    zip_error_init(&error);
    const std::unique_ptr<zip_error_t, void (*)(zip_error_t*)> words(&error, zip_error_fini);
    std::unique_ptr<zip, void (*)(zip*)> archive(
        target ? zip_open_from_source(target, ZIP_CREATE | ZIP_TRUNCATE, &error) : nullptr, zip_discard);
    if (!archive) {
        if (target)
            zip_source_free(target);
        return Fail(path, QString::fromUtf8(zip_error_strerror(&error)));
    }
    work.Archive = archive.get();
    return Fill(work, path, parts).and_then([&] { return Close(work, archive, path, turn); });
}
