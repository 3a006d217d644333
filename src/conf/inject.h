#pragma once

#include <QList>
#include <QStringList>

struct ValueColumn;

/// Stands for a part that a key lacks.
inline const QString NoPart = QStringLiteral("<None>");

/// Element, action and direction of a key; NoPart for each that is absent.
struct KeyParts
{
    QString Element, Action, Direction;

    QString Key() const;
};

/// An element block as it stood when the window opened.
struct InjectBlock
{
    QStringList Lines;   ///< the first is the main line
    QString Key;         ///< in front of the main line's colon
    qsizetype Shown = 0; ///< length of the front of Key that Parts stand for; what follows stays as it is
    KeyParts Parts;
    QString MainValue;
};
InjectBlock ParseBlock(const QString& text, const QStringList& directions);

/// A block that shall be edited by its commands. Its lines are selected in the text that it stands in.
struct InjectRequest
{
    InjectBlock Block;
    QList<bool> Present;   ///< by entry of the commands: has the block a line of it?
    bool Crumbled = false; ///< it is a CRUMBLED group
};

/// What the block was left with.
struct InjectAnswer
{
    KeyParts Parts;
    QList<bool> Wanted; ///< by row of BlockCommands
};

/// The entry of `commands` that a line of the block with this key belongs to, letter case ignored: one that is its
/// part after the key, else one of more than a letter that this part begins with; -1 for none.
int CommandOfLine(const QString& line, const QString& key, const QStringList& commands);

/// A line of the block with other parts in front of its command; spacing and value stay.
QString RenameKey(const QString& line, const InjectBlock& block, const KeyParts& parts);

/// The block with other parts and the wanted commands, each line with its CR LF: lines that are there in their order,
/// those of sub groups after them, then new ones with their default values. Commands beyond BlockCommands keep their
/// lines. `wanted` by row of BlockCommands.
QString RebuildBlock(const InjectBlock& block, const KeyParts& parts, const QList<bool>& wanted,
                     const QStringList& commands, const ValueColumn& column);

/// Lines, blank ones apart, that belong to no command and that a rebuild leaves out.
int ForeignLines(const InjectBlock& block, const QStringList& commands);
