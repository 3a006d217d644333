#pragma once

#include "macro/language/word_tables.h"

// One routine a family of commands: its table.

std::span<const CommandWord> BranchCommands();
std::span<const CommandWord> JumpCommands();
std::span<const CommandWord> LoopCommands();
std::span<const CommandWord> VariableCommands();
std::span<const CommandWord> TextValueCommands();
std::span<const CommandWord> RandomCommands();
std::span<const CommandWord> ListCommands();
std::span<const CommandWord> GroupCommands();
std::span<const CommandWord> CursorCommands();
std::span<const CommandWord> EditingCommands();
std::span<const CommandWord> ScreenCommands();
std::span<const CommandWord> DialogCommands();
std::span<const CommandWord> ProgressCommands();
std::span<const CommandWord> SetFileCommands();
std::span<const CommandWord> FileWorkCommands();
std::span<const CommandWord> DocumentFileCommands();
std::span<const CommandWord> ByteCommands();
std::span<const CommandWord> FileDialogCommands();
std::span<const CommandWord> ArchiveCommands();
std::span<const CommandWord> ProgramCommands();
std::span<const CommandWord> WindowCommands();
std::span<const CommandWord> MouseAndKeyCommands();
std::span<const CommandWord> RegistryCommands();
std::span<const CommandWord> SoundCommands();
std::span<const CommandWord> LevelFileCommands();
std::span<const CommandWord> LevelPaintCommands();
std::span<const CommandWord> LevelReplaceCommands();
std::span<const CommandWord> LevelShowCommands();
