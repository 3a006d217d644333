#pragma once

/// The process's entry: refuses a second instance, prepares folders and tables, shows the main window and runs until
/// it closes. Gives back the exit code.
int StartProgram(int argc, char** argv);
