#pragma once

#include <QString>
#include <array>
#include <optional>

// Sub groups stand under the key of a block and open a group of their own: "key.EDITOR: file", "key.EDITOR.xpos: n".

enum class SubGroup : size_t { Editor, Preview, Crumbled };
constexpr std::array<const char*, 3> SubGroupWords = {"EDITOR", "PREVIEW", "CRUMBLED"};

/// The sub group that a key ends in, case ignored.
std::optional<SubGroup> GroupAtEnd(const QString& key);

/// Is one of the parts of a key a sub group, case ignored?
bool IsInGroup(const QString& key);

/// Does a line name a sub group after any dot, in capitals as the program writes it?
bool NamesGroup(const QString& line);

/// Does a line of the block with this key belong to one of its sub groups? CRUMBLED counts in any case.
bool BelongsToGroup(const QString& line, const QString& key);
