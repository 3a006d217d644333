#include "conf/element_record.h"

ElementState Conf;

void ResetConf()
{
    Conf = ElementState{};
}
