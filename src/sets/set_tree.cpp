#include "sets/set_tree.h"

#include "conf/line_pass.h"
#include "platform/files/paths.h"

#include <algorithm>

namespace {

const QString ZippedEnd = QStringLiteral(".levzip");

bool SortsBefore(const SetNode& left, const SetNode& right)
{
    const int texts = left.Text.compare(right.Text, Qt::CaseInsensitive);
    return texts != 0 ? texts < 0 : left.Key < right.Key;
}

} // namespace

bool SetNode::IsZipped() const
{
    return Key.endsWith(ZippedEnd, Qt::CaseInsensitive);
}

QString SetNode::OwnName() const
{
    const QString name = paths::FileNameOfPath(Key);
    return IsZipped() ? name.chopped(ZippedEnd.size()) : name;
}

QString SetNode::Folder() const
{
    return paths::FolderOfPath(Key) + OwnName();
}

SetNode NodeOf(const QString& key, const QStringList& roots)
{
    SetNode node{key, {}};
    const QString parent = paths::ParentName(key);
    const bool isBare = parent == QLatin1String("levels") || roots.contains(paths::Closed(key));
    node.Text = isBare ? node.OwnName() : node.OwnName() + QStringLiteral(" - ") + parent;
    return node;
}

void SetTree::Fill(std::vector<SetNode> all)
{
    beginResetModel();
    nodes = std::move(all);
    std::sort(nodes.begin(), nodes.end(), SortsBefore);
    currentNode = -1;
    endResetModel();
}

void SetTree::Replace(int node, const SetNode& by)
{
    nodes.at(size_t(node)) = by;
    Changed(node);
}

int SetTree::Add(const SetNode& node)
{
    if (const int stands = IndexOf(node.Key); stands >= 0)
        return stands;
    const auto place = std::lower_bound(nodes.begin(), nodes.end(), node, SortsBefore);
    const int at = int(place - nodes.begin());
    beginInsertRows({}, at, at);
    nodes.insert(place, node);
    currentNode += currentNode >= at;
    endInsertRows();
    return at;
}

int SetTree::IndexOf(const QString& key) const
{
    const auto found = std::find_if(nodes.begin(), nodes.end(), [&](const SetNode& node) { return node.Key == key; });
    return found == nodes.end() ? -1 : int(found - nodes.begin());
}

void SetTree::SetCurrentNode(int node)
{
    const int before = std::exchange(currentNode, node);
    Changed(before);
    Changed(node);
}

void SetTree::Changed(int node)
{
    if (node >= 0)
        emit dataChanged(index(node), index(node));
}

int SetTree::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(nodes.size());
}

QVariant SetTree::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const SetNode& node = nodes.at(size_t(index.row()));
    switch (role) {
    case Qt::DisplayRole:
        return node.Text;
    case Qt::ToolTipRole:
        return paths::Native(node.Key);
    case KeyRole:
        return node.Key;
    case ImageRole:
        return index.row() == currentNode ? CurrentSetGame : node.IsZipped() ? ZippedGame : NormalGame;
    case Qt::AccessibleDescriptionRole:
        return index.row() == currentNode ? QStringLiteral("set game")
               : node.IsZipped()          ? QStringLiteral("zipped game")
                                          : QString();
    default:
        return {};
    }
}

QByteArray SetListBytes(const std::vector<SetNode>& nodes)
{
    QByteArray bytes;
    for (const SetNode& node : nodes)
        if (!node.Key.contains(u'\n')) // the next scan finds it again
            bytes += node.Key.toUtf8() + "\r\n" + node.Text.toUtf8() + "\r\n";
    return bytes;
}

std::vector<SetNode> NodesOfList(const QByteArray& bytes)
{
    std::vector<SetNode> nodes;
    QString key;
    ForEachLine(bytes, {}, [&](const ByteLine& line) {
        const QString text = QString::fromUtf8(line.Text);
        if (key.isEmpty()) {
            key = text;
            return;
        }
        if (key.startsWith(u'/') && !text.isEmpty())
            nodes.push_back({key, text});
        key.clear();
    });
    return nodes;
}
