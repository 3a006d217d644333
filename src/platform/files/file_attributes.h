#pragma once

#include "platform/result.h"

/// Attributes of a file or folder, by the numbers they have always had. "Read-only" is the owner's permission to
/// write; those that the system does not know are kept in the extended attribute "user.DOSATTRIB" where the file system
/// has them.
enum FileAttribute : int {
    AttributeReadOnly = 1,
    AttributeHidden = 2,
    AttributeSystem = 4,
    AttributeFolder = 16,
    AttributeArchive = 32,
    AttributeNormal = 128,
    AttributeCompressed = 2048,
};

/// Sum of the attributes; 0 for a path that does not exist.
int AttributesOf(const QString& path);

/// Replaces the attributes. Folder and Compressed cannot be changed and are passed over.
[[nodiscard]] Result<> SetAttributes(const QString& path, int attributes);
