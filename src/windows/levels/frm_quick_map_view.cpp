#include "windows/levels/frm_quick_map_view.h"

#include "frame/messages/asker.h"
#include "level/level_palette.h"
#include "level/level_record.h"
#include "level/palette_maker.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>

namespace {

/// The palette's picture; an empty one, after telling so, if even the default palette is not there.
QImage PaletteToShow(const QString& name)
{
    const QString path = FindPalette(name);
    if (path.isEmpty()) {
        MessageRecord record;
        record.MessageTitle = QStringLiteral("Missing Graphics Error");
        record.MessageText = QStringLiteral("The default palette (gfx_classic.gif) is missing!  Your map is going to "
                                            "look very.....pink!  x-)");
        Ask(MessageQuestion{record});
        return {};
    }
    const Result<QImage> palette = ReadPalette(path);
    if (!palette)
        ShowFailure(palette.error());
    return palette.value_or(QImage());
}

} // namespace

void frmQuickMapView::Run(const QString& caption, const QString& palette, QWidget* owner)
{
    frmQuickMapView window(caption, PaletteToShow(palette), owner);
    const ModalScope modal;
    window.exec();
}

frmQuickMapView::frmQuickMapView(const QString& caption, const QImage& palette, QWidget* owner)
    : QDialog(DialogParent(owner))
{
    setObjectName(QStringLiteral("frmQuickMapView"));
    SetHelpSubject(this, NoHelpSubject); // F1 is a key like any other
    setWindowTitle(caption);
    setAutoFillBackground(true);
    QPalette dark = this->palette();
    dark.setColor(QPalette::Window, Qt::black);
    setPalette(dark);
    picMap = new QLabel(this);
    picMap->setObjectName(QStringLiteral("picMap"));
    const QImage picture = MapPicture(Level.Map, palette);
    picMap->setPixmap(QPixmap::fromImage(picture));
    picMap->resize(picture.size());
    picMap->installEventFilter(this);
    lblCaption = new QLabel(caption, this);
    lblCaption->setObjectName(QStringLiteral("lblCaption"));
    lblCaption->setTextFormat(Qt::PlainText);
    lblCaption->setAttribute(Qt::WA_TransparentForMouseEvents);
    lblCaption->setStyleSheet(QStringLiteral("color: white; background: rgba(0, 0, 0, 170); padding: 4px 10px"));
    lblCaption->setVisible(!caption.isEmpty());
    setGeometry((parentWidget() ? parentWidget()->screen() : screen())->geometry());
    setWindowState(Qt::WindowFullScreen);
}

/// A map that fits stands in the middle, a larger one shows its corner.
void frmQuickMapView::showEvent(QShowEvent* event)
{
    const QSize room = size() - picMap->size();
    picMap->move(qMax(room.width() / 2, 0), qMax(room.height() / 2, 0));
    lblCaption->setMaximumWidth(width());
    lblCaption->adjustSize();
    lblCaption->move((width() - lblCaption->width()) / 2, height() - lblCaption->height() - Pixels(*this, 12));
    QDialog::showEvent(event);
}

void frmQuickMapView::keyPressEvent(QKeyEvent*)
{
    accept();
}

void frmQuickMapView::mousePressEvent(QMouseEvent*)
{
    accept();
}

bool frmQuickMapView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != picMap)
        return QDialog::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        PressMap(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseMove:
        DragMap(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseButtonRelease:
        dragging = false;
        picMap->unsetCursor();
        return true;
    default:
        return QDialog::eventFilter(watched, event);
    }
}

void frmQuickMapView::PressMap(const QMouseEvent& event)
{
    if (event.button() == Qt::LeftButton) {
        accept();
        return;
    }
    pressedAt = event.position().toPoint();
    dragging = true;
    picMap->setCursor(Qt::ClosedHandCursor);
}

void frmQuickMapView::DragMap(const QMouseEvent& event)
{
    if (dragging)
        picMap->move(picMap->pos() + event.position().toPoint() - pressedAt);
}
