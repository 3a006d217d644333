#pragma once

#include <QList>
#include <QStringList>

struct ValueColumn;

/// Stands for a part that a key lacks.
inline const QString NoPart = QStringLiteral("<None>");

/// The commands that the window has a box for: the first entries of GraphicComs.
constexpr int InjectBoxes = 19;

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

/// The entry of `commands` that a line of the block with this key belongs to, letter case ignored: one that is its
/// part behind the key, else one of more than a letter that this part begins with; -1 for none.
int CommandOfLine(const QString& line, const QString& key, const QStringList& commands);

/// A line of the block with other parts in front of its command; spacing and value stay.
QString RenameKey(const QString& line, const InjectBlock& block, const KeyParts& parts);

/// The block with other parts and the wanted commands, each line with its CR LF: lines that are there in their order,
/// those of sub groups behind, then new ones with their default values. Commands beyond the boxes keep their lines.
QString RebuildBlock(const InjectBlock& block, const KeyParts& parts, const QList<bool>& wanted,
                     const QStringList& commands, const ValueColumn& column);

/// Lines, blank ones apart, that belong to no command and that a rebuild leaves out.
int ForeignLines(const InjectBlock& block, const QStringList& commands);
