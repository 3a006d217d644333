#include "windows/parts/dropped_paths.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

QStringList LocalFiles(const QMimeData& data)
{
    QStringList files;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            files << url.toLocalFile();
    return files;
}

void AcceptAsCopy(QDropEvent& event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}
