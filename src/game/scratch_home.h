#pragma once

#include "platform/result.h"

/// A home folder for one run of the game, below the user's cache folder (or among the temporary files) and open to
/// nobody else; gone with its scope. An open, locked file in it tells that it is in use: the game holds it too
/// (GameStart::HeldFile), so that the folder of a run whose Gemforge was killed is swept once the game has ended.
class ScratchHome
{
public:
    /// Sweeps what ended runs have left, and makes a new one.
    [[nodiscard]] static Result<ScratchHome> Make();

    ScratchHome(ScratchHome&& other) noexcept;
    ScratchHome& operator=(ScratchHome&& other) noexcept;
    ~ScratchHome();

    const QString& Folder() const { return folder; }   ///< "/" at the end
    QString Home() const { return folder.chopped(1); } ///< the same as a home is told
    QString UserFolder() const;                        ///< the game's own in it, "/" at the end; made by Make
    int HeldFile() const { return held; }

private:
    ScratchHome() = default;
    QString folder;
    int held = -1;
};

/// Removes the homes of runs that have ended; how many.
int SweepScratchHomes();
