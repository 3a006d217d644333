#include "windows/macro/frm_macro_pause.h"

#include "frame/run_scope.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QCursor>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>

namespace {

constexpr int BlinkEvery = 1000, MouseEvery = 20; ///< ms
constexpr int ImageSize = 16, Margin = 8;         ///< pixels of a 96-dpi screen

} // namespace

frmMacroPause::frmMacroPause(const PauseQuestion& question, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint), message(new QLabel(this))
{
    setObjectName(QStringLiteral("frmMacroPause"));
    setWindowTitle(QStringLiteral("Pause"));
    SetHelpSubject(this, QStringLiteral("macros"));
    QPalette colours;
    colours.setColor(QPalette::Window, QColor(0x70, 0x88, 0xA8));
    colours.setColor(QPalette::WindowText, Qt::black);
    setPalette(colours);
    auto* image = new QLabel(this);
    image->setObjectName(QStringLiteral("Image1"));
    image->setPixmap(CommandIcon(QStringLiteral("app")).pixmap(Pixels(*this, ImageSize)));
    message->setObjectName(QStringLiteral("lblMessage"));
    message->setTextFormat(Qt::PlainText);
    message->setText(question.Text);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Pixels(*this, Margin), Pixels(*this, Margin), Pixels(*this, Margin), Pixels(*this, Margin));
    row->setSizeConstraint(QLayout::SetFixedSize);
    row->addWidget(image);
    row->addWidget(message);
    connect(&Timer1, &QTimer::timeout, this, &frmMacroPause::Blink);
    Timer1.start(BlinkEvery);
    if (question.Milliseconds) {
        tmpPause.setSingleShot(true);
        connect(&tmpPause, &QTimer::timeout, this, &QDialog::reject);
        tmpPause.start(int(*question.Milliseconds));
    }
    if (question.Text.compare(QLatin1String("pausemouse"), Qt::CaseInsensitive) == 0) {
        connect(&tmrMouse, &QTimer::timeout, this, &frmMacroPause::ShowMouse);
        tmrMouse.start(MouseEvery);
        ShowMouse();
    }
}

void frmMacroPause::Blink()
{
    raise();
    white = !white;
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, white ? Qt::white : Qt::black);
    setPalette(colours);
}

void frmMacroPause::ShowMouse()
{
    const QPoint mouse = QCursor::pos();
    message->setText(QStringLiteral("Mouse X: %1  Mouse Y: %2").arg(mouse.x()).arg(mouse.y()));
}

void frmMacroPause::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    accept();
}

/// Esc is for the macro, as in every other wait; a key that presses buttons is a click.
void frmMacroPause::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        StopRuns(StopReason::Esc);
        reject();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        accept();
        break;
    default:
        QDialog::keyPressEvent(event);
    }
}

Answer frmMacroPause::Ask(const PauseQuestion& question, QWidget* parent)
{
    const ModalScope scope;
    frmMacroPause dialog(question, parent);
    return dialog.exec() == QDialog::Accepted ? Answer(Pressed{}) : Answer(Cancelled{});
}
