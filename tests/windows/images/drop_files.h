#pragma once

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

/// Drops files on a window, as another program would. False: it does not take them.
inline bool DropFiles(QWidget& window, const QStringList& files)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& file : files)
        urls << QUrl::fromLocalFile(file);
    data.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}
