#pragma once

#include "game/finding_places.h"
#include "game/prepared_set.h"
#include "game/run_game.h"

/// What the game says of a level set.
struct GameCheck
{
    std::vector<PlacedFinding> Findings; ///< paths as in the set itself
    GameEnd End = GameEnd::SaidAll;      ///< anything else: there may be more
};

/// Lets a game read a set unseen, in a home of its own, and ends it when it has said all: once it is in its main menu,
/// on its error screen, or silent for long. `text` gives the files as the author has them.
[[nodiscard]] Result<GameCheck> CheckSet(const QString& program, const QStringList& arguments, const SetWish& wish,
                                         RunScope& scope, qint64 limitMs, const ConfText& text);

/// Checks the set of the current document, unsaved texts included, and shows the game's words in the list.
void CheckWithTheGame();
