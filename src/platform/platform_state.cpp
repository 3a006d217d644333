#include "platform/platform_state.h"

#include "platform/image_service.h"
#include "platform/picture_maker.h"
#include "platform/player_process.h"

PlatformState Platform;

PlatformState::PlatformState() = default;
PlatformState::~PlatformState() = default;
