#include "platform/platform_state.h"

#include "platform/images/image_service.h"
#include "platform/images/picture_maker.h"
#include "platform/sound/player_process.h"

PlatformState Platform;

PlatformState::PlatformState() = default;
PlatformState::~PlatformState() = default;
