#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QStringList>
#include <memory>
#include <vector>

/// A file of our own that stands in a user's file's place while another program runs. What is exchanged are names, so
/// the user's file is never copied, written or opened for writing. A note beside it (paths, sizes, hashes), which is
/// locked as long as the swap is in force, lets a later start put everything back after a crash.
namespace name_swap {

/// A folder that goes by another name meanwhile.
struct FolderMove
{
    QString From, To; ///< absolute, without "/" at the end; one that is not there is passed over
};

struct Plan
{
    QString File;     ///< absolute; its place is taken
    QString KeptName; ///< what it is called meanwhile, in the same folder; free
    QByteArray Bytes; ///< of what takes its place
    std::vector<FolderMove> Folders;
};

/// What putting back has brought to light.
struct PutBack
{
    QStringList Restored; ///< files that stand in their place again
    QStringList Kept;     ///< new names of texts that somebody has written meanwhile, and of folders that stand twice
    std::vector<Failure> Failures; ///< what could not be put back yet; its note stays

    void Add(PutBack other);
};

/// A swap in force. Ends with its scope at the latest; what went wrong then is found at the next start.
class Swap
{
public:
    struct Held;
    explicit Swap(std::unique_ptr<Held> swapInForce);
    Swap(Swap&& other) noexcept;
    ~Swap();

    PutBack End();

private:
    std::unique_ptr<Held> held;
};

/// Takes the file's place. A failure leaves all as it was, or a note where even that failed. Fails where another
/// program of ours holds a swap in the folder.
[[nodiscard]] Result<Swap> Begin(const Plan& plan);

/// Puts back what ended runs have left: of every folder that this user's notes tell of, and of one folder (which
/// another user may have left so). Swaps in force are let alone.
PutBack FinishAll();
PutBack FinishIn(const QString& folder);

} // namespace name_swap
