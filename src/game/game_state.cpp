#include "game/game_state.h"

#include "game/game_words.h"
#include "game/safe_test.h"

GameState Game;

GameState::GameState() = default;
GameState::~GameState() = default;

void ResetGame()
{
    Game.Test.reset();
    Game.Words.reset();
}

GameWords& Words()
{
    if (!Game.Words)
        Game.Words = std::make_unique<GameWords>();
    return *Game.Words;
}
