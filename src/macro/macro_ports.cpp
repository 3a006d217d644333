#include "macro/macro_ports.h"

MacroPorts MacroWindows;

void ResetMacroPorts()
{
    MacroWindows = {};
}
