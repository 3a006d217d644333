#pragma once

#include "platform/files/name_swap.h"

#include <QByteArrayView>
#include <optional>

/// What a note of a swap tells. Names are those of the folder that the note lies in, so that the set may move.
struct SwapNote
{
    QByteArray File, Kept, Spare; ///< Spare: for file systems that cannot exchange two names at once
    qint64 TakenSize = 0;         ///< of the user's file
    QByteArray TakenHash;
    qint64 OwnSize = 0; ///< of the file in its place
    QByteArray OwnHash;
    std::vector<name_swap::FolderMove> Folders; ///< as paths from the note's folder

    QByteArray ToBytes() const;
    static std::optional<SwapNote> Parsed(const QByteArray& bytes);
};

QByteArray SwapHash(QByteArrayView bytes);

/// The note of a folder, held by this process: nobody else works on the swap meanwhile.
class HeldNote
{
public:
    HeldNote() = default;
    ~HeldNote();
    HeldNote(const HeldNote&) = delete;
    HeldNote& operator=(const HeldNote&) = delete;

    /// Lays a new note into `folder` ("/" at the end), synced. 0 or the error number; EBUSY: there is one already.
    [[nodiscard]] int Make(const QByteArray& folder, const SwapNote& note);
    /// Takes over the note of an ended process. 0 or the error number; ENOENT: none; EBUSY: it is in force.
    [[nodiscard]] int TakeOver(const QByteArray& folder, std::optional<SwapNote>& note);
    [[nodiscard]] int Remove();

private:
    QByteArray path;
    int file = -1;
};

/// Where this user's notes are noted: a file each in the state folder, holding the folder's path.
Result<QString> RememberFolder(const QByteArray& folder);
void ForgetFolder(const QString& reminder);
/// Reminders of this user and the folders that they name.
std::vector<std::pair<QString, QByteArray>> RememberedFolders();
