#pragma once

#include "platform/file_types.h"

class RegistryStore;

/// Makes a group's program what opens its files: the file type with its verbs in the registry, and all that the desktop
/// needs for it to be so.
[[nodiscard]] Result<> AssociateFiles(file_types::Group group, const file_types::Places& places, RegistryStore& store);

/// Takes all of it back: the file types out of the registry, and what the desktop was told.
[[nodiscard]] Result<> TakeBackFiles(const file_types::Places& places, RegistryStore& store);
