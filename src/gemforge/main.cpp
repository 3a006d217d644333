#include "windows/main/start_up.h"

int main(int argc, char** argv)
{
    return StartProgram(argc, argv);
}
