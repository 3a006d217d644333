#include "platform/archives/zip_sources.h"

#include "platform/files/whole_file.h"

#include <QFile>
#include <fcntl.h>
#include <memory>
#include <utility>
#include <zip.h>

namespace {

constexpr qsizetype Gathered = qsizetype(1) << 18; ///< bytes of an archive written at a time

/// One end of an archive: the library sends its commands to it, one object each.
class ZipEnd
{
public:
    explicit ZipEnd(Failure& reasons) : why(reasons) { zip_error_init(&error); }
    virtual ~ZipEnd() { zip_error_fini(&error); }
    ZipEnd(const ZipEnd&) = delete;
    ZipEnd& operator=(const ZipEnd&) = delete;

    static zip_int64_t Command(void* self, void* data, zip_uint64_t size, zip_source_cmd_t command)
    {
        auto* const end = static_cast<ZipEnd*>(self);
        if (command == ZIP_SOURCE_ERROR)
            return zip_error_to_data(&end->error, data, size);
        if (command != ZIP_SOURCE_FREE)
            return end->Do(command, data, size);
        delete end;
        return 0;
    }

protected:
    virtual zip_int64_t Do(zip_source_cmd_t command, void* data, zip_uint64_t size) = 0;

    zip_int64_t Failed(int code, int systemError)
    {
        zip_error_set(&error, code, systemError);
        return -1;
    }

    Failure& why;
    zip_error_t error;
};

class FileEnd : public ZipEnd
{
public:
    FileEnd(const QString& from, const FileFacts& known, Failure& reasons) : ZipEnd(reasons), path(from), facts(known)
    {
    }
    ~FileEnd() override { Close(); }

protected:
    zip_int64_t Do(zip_source_cmd_t command, void* data, zip_uint64_t size) override
    {
        switch (command) {
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_READABLE;
        case ZIP_SOURCE_STAT:
            return Describe(*static_cast<zip_stat_t*>(data));
        case ZIP_SOURCE_OPEN:
            file = Persist([&] { return Steps().Open(QFile::encodeName(path), O_RDONLY | O_NONBLOCK | O_NOCTTY, 0); });
            return file < 0 ? Broken(ZIP_ER_OPEN) : 0;
        case ZIP_SOURCE_READ: {
            const ssize_t got = Persist([&] { return Steps().Read(file, data, size_t(size)); });
            return got < 0 ? Broken(ZIP_ER_READ) : got;
        }
        case ZIP_SOURCE_CLOSE:
            Close();
            return 0;
        default:
            return Failed(ZIP_ER_OPNOTSUPP, 0);
        }
    }

private:
    zip_int64_t Describe(zip_stat_t& stat) const
    {
        zip_stat_init(&stat);
        stat.size = zip_uint64_t(facts.st_size);
        stat.mtime = facts.st_mtime;
        stat.valid = ZIP_STAT_SIZE | ZIP_STAT_MTIME;
        return sizeof stat;
    }
    zip_int64_t Broken(int code)
    {
        why = {path, qt_error_string(errno)};
        return Failed(code, errno);
    }
    void Close()
    {
        if (file >= 0)
            Steps().Close(std::exchange(file, -1));
    }

    const QString path;
    const FileFacts facts;
    int file = -1;
};

/// The library writes headers and packed pieces of a few bytes and goes back to fill in sums: gathered here.
class ArchiveEnd : public ZipEnd
{
public:
    ArchiveEnd(WholeFile& to, Failure& reasons) : ZipEnd(reasons), file(to) {}

protected:
    zip_int64_t Do(zip_source_cmd_t command, void* data, zip_uint64_t size) override
    {
        switch (command) {
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_WRITABLE;
        case ZIP_SOURCE_STAT: // what stood there before is not read by way of this end
            return Failed(ZIP_ER_READ, ENOENT);
        case ZIP_SOURCE_BEGIN_WRITE:
        case ZIP_SOURCE_ROLLBACK_WRITE:
            return 0;
        case ZIP_SOURCE_WRITE:
            return Write(QByteArrayView(static_cast<const char*>(data), qsizetype(size)));
        case ZIP_SOURCE_TELL_WRITE:
            return at;
        case ZIP_SOURCE_SEEK_WRITE: {
            const zip_int64_t to =
                zip_source_seek_compute_offset(zip_uint64_t(at), zip_uint64_t(end), data, size, &error);
            at = to < 0 ? at : to;
            return to < 0 ? -1 : 0;
        }
        case ZIP_SOURCE_COMMIT_WRITE:
            return Flush() && Took(file.Commit()) ? 0 : -1;
        default:
            return Failed(ZIP_ER_OPNOTSUPP, 0);
        }
    }

private:
    zip_int64_t Write(QByteArrayView bytes)
    {
        const bool joins = at >= base && at <= base + gathered.size();
        if (!joins || gathered.size() > Gathered) {
            if (!Flush())
                return -1;
            base = at;
        }
        const qsizetype inside = std::min(bytes.size(), qsizetype(base + gathered.size() - at));
        std::copy_n(bytes.begin(), inside, gathered.data() + (at - base));
        gathered.append(bytes.sliced(inside));
        at += bytes.size();
        end = std::max(end, at);
        return bytes.size();
    }
    bool Flush()
    {
        const bool written = gathered.isEmpty() || Took(file.Put(gathered, base));
        gathered.clear();
        return written;
    }
    bool Took(const Result<>& result)
    {
        if (result)
            return true;
        why = result.error();
        Failed(ZIP_ER_WRITE, EIO);
        return false;
    }

    WholeFile& file;
    QByteArray gathered;
    zip_int64_t base = 0; ///< where what is gathered begins
    zip_int64_t at = 0, end = 0;
};

zip_source* Made(std::unique_ptr<ZipEnd> end)
{
    zip_source* const source = zip_source_function_create(ZipEnd::Command, end.get(), nullptr);
    if (source)
        (void)end.release();
    return source;
}

} // namespace

namespace zip_sources {

zip_source* OfFile(const QString& path, const FileFacts& facts, Failure& why)
{
    return Made(std::make_unique<FileEnd>(path, facts, why));
}

zip_source* Into(WholeFile& file, Failure& why)
{
    return Made(std::make_unique<ArchiveEnd>(file, why));
}

} // namespace zip_sources
