#pragma once

/// Finds the chosen set and reads its conf files and its level, with the game's messages. False: a picture cannot be
/// read, and the game is on its error screen.
bool ReadSet();

/// The menu is there: the state of the set is written.
void EnterMenu();
