#include "platform/platform_state.h"

PlatformState Platform;
