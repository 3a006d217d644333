#pragma once

#include "platform/result.h"

#include <QStringList>

/// The program's file types on the desktop of this user: kinds of files by name and content, their pictures, the
/// programs that open them. What is written is remembered, with the programs that opened these kinds before, so that
/// all of it can be taken back.
namespace file_types {

enum class Group {
    Confs, ///< the seven conf files, macros and zipped level sets: Gemforge
    Levels ///< Mapglass
};

struct Places
{
    QString DataHome, ConfigHome; ///< the desktop's, each with "/" at its end
    QString Programs;             ///< folder of Gemforge and Mapglass
};
/// Of this user, and of the program that runs.
Places OfUser();

/// The program that opens a group, and the kinds that it opens.
QString ProgramOf(Group group, const Places& places);
QStringList KindsOf(Group group);

/// Registers all kinds, and makes the group's program what opens its kinds. Fails for a program that is not there, a
/// file that cannot be written, and a desktop without the tools that bring the kinds into effect.
[[nodiscard]] Result<> Associate(Group group, const Places& places);

/// Is there something to take back?
bool Associated(const Places& places);

/// Removes what Associate wrote. Kinds that still open with our programs open with what they did before.
[[nodiscard]] Result<> TakeBack(const Places& places);

/// A path as a word of an entry's command line.
QString ExecWord(const QString& path);

} // namespace file_types
