#pragma once

#include "level/level_record.h"
#include "platform/files/paths.h"

#include <QByteArray>

// The open level on disk. Its working files lie in a private temporary folder.

inline const QString WorkingLevel = QStringLiteral("tmp.level"); ///< up to the end of the map, as loaded
inline const QString WorkingTail = QStringLiteral("tmp.cust");   ///< what stood after the map, if anything
inline const QString ViewedLevel = QStringLiteral("view.level"); ///< saved for a viewer

/// Path of a working file; the folder is made if need be. Empty if it can not be made.
QString WorkingPath(const QString& name);

/// Removes the folder with all working files.
void RemoveWorkingFiles();

/// No level is open, and no working file is left.
void CloseLevel();

/// Opens a level: drops the one before, fills Level and the working files. With `keepWorking` the level is tmp.level
/// already and `path` is not looked at; an existing tmp.cust stays if the level has no tail and is of the same family.
/// CurrentLevelPath is the caller's. Failure, as a text for the user: no level is open then.
[[nodiscard]] Result<> LoadLevel(const QString& path, bool keepWorking);

/// LoadLevel for the blank level that the program holds (64 by 32).
[[nodiscard]] Result<> LoadNewLevel();

/// Writes the open level to `path`, whole or not at all. With `keepOpen` it stays open; otherwise its working files are
/// removed. Without tmp.level nothing is done. Failure: path and reason, and the working files stay. `before` runs when
/// the new bytes lie safely beside.
[[nodiscard]] Result<> SaveLevel(const QString& path, bool keepOpen, const paths::BeforeReplace& before = {});

/// What stands after the open level's map; empty if nothing does.
[[nodiscard]] Result<QByteArray> LevelTail();

/// Puts a file, which TestCustomFile takes, in its place; takes it away.
[[nodiscard]] Result<> LoadLevelTail(const QString& path);
void RemoveLevelTail();

/// Is the file one of custom elements that the open level (without one: a level of file version 2) can take? Failure,
/// as a text for the user: it is none, or can not be read.
[[nodiscard]] Result<> TestCustomFile(const QString& path);

/// A level of its own, apart from the open one.
struct LevelFile
{
    LevelRecord Record;
    QByteArray Bytes; ///< of the whole file
};
[[nodiscard]] Result<LevelFile> ReadLevelFile(const QString& path);

/// A level image that the program holds: "BLANKLEVEL" or "LEVEL".
QByteArray LevelImage(const QString& name);
