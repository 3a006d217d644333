#pragma once

#include <QString>
#include <memory>
#include <utility>

class GameWords;
class SafeTest;

/// What this room remembers between calls: one instance, reset between tests.
struct GameState
{
    GameState();
    ~GameState();

    std::unique_ptr<GameWords> Words; ///< what the game complained about in its last run; null before the first
    std::pair<QString, int> Level;    ///< the last level that was chosen for a test, with its set's folder
    std::unique_ptr<SafeTest> Test;   ///< while the game plays a copy of a set
};
extern GameState TheGame;
void ResetGame();

GameWords& Words(); ///< made when first asked for
