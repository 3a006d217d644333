#include "graphics/picture_files.h"
#include "mapglass/mapglass_window.h"
#include "platform/files/paths.h"

#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

void MapglassWindow::AskForLevel()
{
    const QString chosen = QFileDialog::getOpenFileName(this, QStringLiteral("Open a Level"), folder,
                                                        QStringLiteral("Levels (*.level *.LEVEL);;All files (*)"));
    if (!chosen.isEmpty())
        OpenLevel(chosen);
}

void MapglassWindow::CopyPicture()
{
    QGuiApplication::clipboard()->setImage(painter.Picture(level.Record.Map));
    Tell(QStringLiteral("The picture is on the clipboard."));
}

void MapglassWindow::Export()
{
    const QFileInfo file(path);
    QString chosen = QFileDialog::getSaveFileName(this, QStringLiteral("Export as PNG"),
                                                  folder + file.completeBaseName() + QStringLiteral(".png"),
                                                  QStringLiteral("PNG pictures (*.png)"));
    if (chosen.isEmpty())
        return;
    if (FormOfName(chosen) != PictureForm::Png) {
        chosen += QStringLiteral(".png");
        if (QFileInfo::exists(chosen) &&
            QMessageBox::question(this, windowTitle(), QStringLiteral("Replace %1?").arg(paths::Native(chosen))) !=
                QMessageBox::Yes)
            return;
    }
    const Result<> written = WritePicture(chosen, painter.Picture(level.Record.Map), PcxDepth::Full);
    if (written)
        Tell(QStringLiteral("Written: ") + paths::Native(chosen));
    else
        QMessageBox::warning(this, windowTitle(), written.error().Text().replace(u'^', u'\n'));
}

/// The map on one page, as large as it fits, under a line with its name.
void MapglassWindow::Print()
{
    QPrinter printer(QPrinter::HighResolution);
    const LevelMap& map = level.Record.Map;
    printer.setPageOrientation(map.Width() > map.Height() ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setDocName(paths::FileNameOfPath(path));
    if (QPrintDialog(&printer, this).exec() != QDialog::Accepted)
        return;
    QPainter paint;
    if (!paint.begin(&printer)) {
        QMessageBox::warning(this, windowTitle(), QStringLiteral("The printer cannot be written to."));
        return;
    }
    const QRect page = paint.viewport();
    const int line = paint.fontMetrics().height() * 2;
    paint.drawText(QRect(page.left(), page.top(), page.width(), line), Qt::AlignLeft | Qt::AlignTop,
                   QStringLiteral("%1  %2, %3")
                       .arg(paths::FileNameOfPath(path), level.Record.Info.Cavename, level.Record.Info.Author));
    const QImage picture = painter.Picture(map);
    const QSize size = picture.size().scaled(page.width(), page.height() - line, Qt::KeepAspectRatio);
    paint.drawImage(QRect(QPoint(page.left(), page.top() + line), size), picture);
}
