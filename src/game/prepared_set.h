#pragma once

#include "game/game_messages.h"
#include "game/scratch_home.h"
#include "game/set_copy.h"

#include <QStringList>
#include <optional>

struct SetWish
{
    QString Folder;           ///< of the level set, "/" at the end
    std::optional<int> Level; ///< to begin with; else the set's first
    UnsavedTexts Texts;
    bool UsersSetup = true; ///< with the player's settings of the game
};

/// A level set made ready for one run of the game in a home of its own: a copy as the only set the game finds, with
/// its groups' texts, artwork of other sets that it names, and the set and level chosen. No score reaches a server.
struct PreparedSet
{
    ScratchHome Home;
    QString From, Copy; ///< folders of the set and its copy, "/" at the end
    QStringList Arguments;
    CopyCount Count;

    /// Has the game read everything and is in its main menu? It writes the set's state then.
    bool IsInMenu() const;
    /// Paths in the copy become those in the set; any other stays as it is.
    void LeadBack(GameFinding& finding) const;

    QString StateFile;
    QByteArray StateBefore;
};

[[nodiscard]] Result<PreparedSet> PrepareSet(const SetWish& wish);
