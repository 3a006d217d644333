#include "frame/media/inject_path.h"

#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "platform/files/paths.h"

#include <QDir>

void ApplyInjectPath(const QString& text)
{
    const QString told = paths::Inside(QString(text).replace(u'*', u'/'));
    const QString whole = QDir::isAbsolutePath(told) ? told : QDir::cleanPath(Frame.CurrentFolder + told);
    const QString folder = told.isEmpty() ? QString() : paths::Existing(whole);
    if (!folder.isEmpty() && paths::FolderExists(folder))
        SetExtraFolder(paths::Closed(folder));
}

void ApplyStoredInjectPath()
{
    const QString line = CurrentPane().GetLine(0);
    if (line.startsWith(QLatin1StringView("#!*")))
        ApplyInjectPath(line.mid(3));
}

void InsertInjectPath()
{
    QString folder = Frame.Media.ExtraFolder;
    if (folder.size() > 1 && folder.endsWith(u'/'))
        folder.chop(1);
    CurrentPane().InsertLine(0, QStringLiteral("#!*") + folder.replace(u'/', u'*'));
    Panes().FocusPane();
}
