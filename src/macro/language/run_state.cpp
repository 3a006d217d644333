#include "macro/language/run_state.h"

ElementRecord RunState::NoElement()
{
    ElementRecord none;
    none.ImageFile.clear();
    none.ElementName.clear();
    none.Frames = none.Delay = 0;
    return none;
}
