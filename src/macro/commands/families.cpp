#include "macro/commands/families.h"

std::span<const std::span<const CommandWord>> CommandFamilies()
{
    static const std::span<const CommandWord> families[] = {
        BranchCommands(),       LoopCommands(),         JumpCommands(),       VariableCommands(), TextValueCommands(),
        RandomCommands(),       ListCommands(),         GroupCommands(),      CursorCommands(),   EditingCommands(),
        ScreenCommands(),       DialogCommands(),       ProgressCommands(),   SetFileCommands(),  FileWorkCommands(),
        DocumentFileCommands(), ByteCommands(),         FileDialogCommands(), ArchiveCommands(),  ProgramCommands(),
        WindowCommands(),       MouseAndKeyCommands(),  RegistryCommands(),   SoundCommands(),    LevelFileCommands(),
        LevelPaintCommands(),   LevelReplaceCommands(), LevelShowCommands(),
    };
    return families;
}
