#include "platform/processes/process_tree.h"

#include <QDir>
#include <QFile>
#include <QMultiHash>

namespace {

/// 0 for a process that has gone. Its name, in brackets, may hold anything; state and parent follow the last one.
qint64 ParentOf(const QString& process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray facts = file.readAll();
    return facts.mid(facts.lastIndexOf(')') + 1).simplified().split(' ').value(1).toLongLong();
}

} // namespace

namespace processes {

QSet<qint64> Tree(qint64 process)
{
    QMultiHash<qint64, qint64> children;
    for (const QString& name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        bool isNumber = false;
        const qint64 child = name.toLongLong(&isNumber);
        if (isNumber)
            children.insert(ParentOf(name), child);
    }
    QSet<qint64> tree;
    QList<qint64> open{process};
    while (!open.isEmpty()) {
        const qint64 next = open.takeLast();
        if (tree.contains(next))
            continue;
        tree.insert(next);
        open += children.values(next);
    }
    return tree;
}

} // namespace processes
