#include "platform/platform_state.h"

#include "platform/image_service.h"

PlatformState Platform;

PlatformState::PlatformState() = default;
PlatformState::~PlatformState() = default;
