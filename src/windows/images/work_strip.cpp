#include "windows/images/work_strip.h"

#include "frame/frame_state.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

namespace {

constexpr qint64 Moment = 300; ///< ms after which the strip shows
constexpr qint64 Beat = 20;    ///< ms between events

bool IsInput(QEvent::Type type)
{
    constexpr QEvent::Type Inputs[] = {QEvent::MouseButtonPress,
                                       QEvent::MouseButtonRelease,
                                       QEvent::MouseButtonDblClick,
                                       QEvent::Wheel,
                                       QEvent::KeyPress,
                                       QEvent::KeyRelease,
                                       QEvent::ShortcutOverride,
                                       QEvent::ContextMenu,
                                       QEvent::DragEnter,
                                       QEvent::Drop,
                                       QEvent::Close};
    return std::find(std::begin(Inputs), std::end(Inputs), type) != std::end(Inputs);
}

} // namespace

WorkStrip::WorkStrip(QWidget* window)
    : QWidget(window),
      label(new QLabel(this)),
      bar(new QProgressBar(this)),
      cmdStop(new QPushButton(QStringLiteral("Stop"), this))
{
    setObjectName(QStringLiteral("workStrip"));
    label->setTextFormat(Qt::PlainText);
    cmdStop->setObjectName(QStringLiteral("cmdStop"));
    cmdStop->setAutoDefault(false);
    cmdStop->setFocusPolicy(Qt::NoFocus);
    cmdStop->setToolTip(QStringLiteral("Stop (Esc)"));
    connect(cmdStop, &QPushButton::clicked, this, &WorkStrip::Stop);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(label, 1);
    row->addWidget(bar, 1);
    row->addWidget(cmdStop);
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true); // nothing moves when it shows
    setSizePolicy(policy);
    hide();
}

bool WorkStrip::Run(const QString& what, int most, const std::function<void(const Turn&)>& work)
{
    const WorkScope scope;
    label->setText(what);
    bar->setRange(0, most);
    bar->setValue(0);
    running = true;
    stopped = closing = false;
    sinceStart.start();
    sinceTurn.start();
    QCoreApplication::instance()->installEventFilter(this);
    work([this] { return TakeTurn(); });
    QCoreApplication::instance()->removeEventFilter(this);
    running = false;
    hide();
    if (closing)
        QTimer::singleShot(0, window(), &QWidget::close);
    return !stopped;
}

void WorkStrip::Tell(int done, const QString& what)
{
    bar->setValue(done);
    if (!what.isEmpty())
        label->setText(what);
}

bool WorkStrip::TakeTurn()
{
    if (sinceTurn.elapsed() < Beat && !stopped)
        return true;
    if (isHidden() && sinceStart.elapsed() > Moment)
        show();
    QCoreApplication::processEvents();
    sinceTurn.start();
    stopped = stopped || Frame.StopRequested;
    return !stopped;
}

bool WorkStrip::IsOfWindow(const QObject* part) const
{
    for (; part; part = part->parent())
        if (part == window())
            return true;
    return false;
}

bool WorkStrip::eventFilter(QObject* watched, QEvent* event)
{
    if (!IsInput(event->type()) || !watched->isWidgetType() || !IsOfWindow(watched) || watched == cmdStop)
        return false;
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
        Stop();
    if (event->type() == QEvent::Close) {
        closing = true;
        Stop();
        event->ignore();
    }
    return true;
}
