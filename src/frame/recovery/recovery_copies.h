#pragma once

#include "frame/recovery/recovery.h"
#include "platform/result.h"

#include <optional>
#include <vector>

/// Files of the recovery folder. Each run has a folder of its own, which it holds locked while it lives; each copy in
/// it is a folder with the text and a header, the header written last. All of it deals in bytes and paths only.
namespace recovery {

/// What the header of a copy tells beside the text.
struct CopyFacts
{
    QString DocumentPath;
    int Mode = 1;
    FileEncoding Encoding = FileEncoding::Utf8;
    LineBreak LineEnd = LineBreak::CrLf;
    qint64 Kept = 0; ///< milliseconds since 1970
    bool Code = false;
};

/// Copies older than this are of no use to anybody.
constexpr qint64 Day = qint64(24) * 60 * 60 * 1000;
constexpr qint64 StaleAfter = 60 * Day;
constexpr qint64 ClosedStaleAfter = 7 * Day;

/// What the names of copies begin with whose texts the user has let go.
inline const QString ClosedCopies = QStringLiteral("closed-");

/// The folder of the living run, made with the first copy; a second one beside the spare folder's as soon as the first
/// takes a copy no longer. What is left of them at the end are its copies.
class RunFolder
{
public:
    /// `spare`: for what cannot be written in `base`; empty: none.
    RunFolder(const QString& base, const QString& spare);
    ~RunFolder();
    RunFolder(const RunFolder&) = delete;
    RunFolder& operator=(const RunFolder&) = delete;

    /// Replaces the copy of that name; until the new one is whole, the old one counts. Failure: why the base could not
    /// take it, if the spare could not either.
    [[nodiscard]] Result<> Write(const QString& name, const CopyFacts& facts, QByteArrayView bytes);
    void Remove(const QString& name);

private:
    struct Place
    {
        QString Folder;
        QString Own = {}; ///< of this run, in Folder
        int Lock = -1;    ///< -1: not made yet
    };
    static Result<> Open(Place& place);
    Result<> WriteIn(Place& place, const QString& name, const CopyFacts& facts, QByteArrayView bytes);
    static void RemoveFrom(const Place& place, const QString& name);

    std::vector<Place> places;
    int generation = 0;
};

/// Whole copies of runs that have ended, the newest first; without those of closed texts.
std::vector<RecoveredText> CopiesOfEndedRuns(const QString& folder);

/// The closed text that was kept last, by a run that has ended or one that lives.
std::optional<RecoveredText> LastClosedCopy(const QString& folder);

/// Removes a copy, and its run's folder with the last of them.
void RemoveCopy(const QString& copyFolder);

/// Removes what is older than StaleAfter (a closed text: ClosedStaleAfter) at `now` or empty, of ended runs.
void Sweep(const QString& folder, qint64 now);

} // namespace recovery
