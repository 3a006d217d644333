#include "game/game_state.h"

#include "game/game_words.h"
#include "game/safe_test.h"

GameState TheGame;

GameState::GameState() = default;
GameState::~GameState() = default;

void ResetGame()
{
    TheGame.Test.reset();
    TheGame.Words.reset();
    TheGame.Level = {};
}

GameWords& Words()
{
    if (!TheGame.Words)
        TheGame.Words = std::make_unique<GameWords>();
    return *TheGame.Words;
}
