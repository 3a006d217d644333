#pragma once

#include <QAbstractListModel>
#include <vector>

/// A game of the Level Manager: a folder that holds levels, or a zipped one.
struct SetNode
{
    QString Key;  ///< full path of the folder, without "/" at the end, or of the `.levzip` file
    QString Text; ///< what the tree shows

    bool IsZipped() const;
    QString OwnName() const; ///< of the folder, or the archive's base name
    QString Folder() const;  ///< the game's own, whether it is there or not; without "/" at the end

    bool operator==(const SetNode&) const = default;
};

/// The node of a path. Its text is the own name, with " - " and the name of the folder above behind, unless that one is
/// called "levels" or the folder is one of the `roots` itself ("/" at their ends).
SetNode NodeOf(const QString& key, const QStringList& roots);

/// All games, sorted by text.
class SetTree : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role { ImageRole = Qt::UserRole, KeyRole };
    enum Image { NormalGame = 1, ZippedGame, CurrentSetGame };
    using QAbstractListModel::QAbstractListModel;

    const std::vector<SetNode>& Nodes() const { return nodes; }
    void Fill(std::vector<SetNode> all);       ///< in any order; none is the current one then
    void Replace(int node, const SetNode& by); ///< where it stands, although its text may sort elsewhere
    int Add(const SetNode& node);              ///< where it belongs, and its index; one of that key stays
    int IndexOf(const QString& key) const;     ///< -1 for none

    int CurrentNode() const { return currentNode; } ///< the one with image 3; -1: none
    void SetCurrentNode(int node);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    void Changed(int node);

    std::vector<SetNode> nodes;
    int currentNode = -1;
};

/// `rndlevels.lst`: two lines a node, its key, then its text. What is no pair of lines is passed over.
QByteArray SetListBytes(const std::vector<SetNode>& nodes);
std::vector<SetNode> NodesOfList(const QByteArray& bytes);
