#include "windows/images/work_strip.h"

#include "frame/run_scope.h"
#include "windows/parts/dialog_help.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

namespace {

constexpr qint64 Moment = 300; ///< ms after which the strip shows
constexpr int LeastBar = 60;   ///< pixels at 96 dpi

} // namespace

WorkStrip::WorkStrip(QWidget* window)
    : QWidget(window),
      label(new QLabel(this)),
      bar(new QProgressBar(this)),
      cmdStop(new QPushButton(QStringLiteral("Stop"), this))
{
    setObjectName(QStringLiteral("workStrip"));
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long name takes no room from others
    bar->setMinimumWidth(Pixels(*this, LeastBar));
    cmdStop->setObjectName(QStringLiteral("cmdStop"));
    cmdStop->setAutoDefault(false);
    cmdStop->setFocusPolicy(Qt::NoFocus);
    cmdStop->setToolTip(QStringLiteral("Stop (Esc)"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(label, 2);
    row->addWidget(bar, 1);
    row->addWidget(cmdStop);
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true); // nothing moves when it shows
    setSizePolicy(policy);
    hide();
}

bool WorkStrip::Run(const QString& what, int most, const std::function<void(const Turn&)>& work)
{
    RunScope run(RunKind::Pass, what);
    scope = &run;
    label->setText(what);
    bar->setRange(0, most);
    bar->setValue(0);
    closing = false;
    sinceStart.start();
    QCoreApplication::instance()->installEventFilter(this);
    work([this] { return TakeTurn(); });
    QCoreApplication::instance()->removeEventFilter(this);
    scope = nullptr;
    hide();
    if (closing)
        QTimer::singleShot(0, window(), &QWidget::close);
    return !run.Stopped();
}

void WorkStrip::Tell(int done, const QString& what)
{
    bar->setValue(done);
    label->setText(label->fontMetrics().elidedText(what, Qt::ElideMiddle, label->width()));
}

void WorkStrip::Tell(int done, int most)
{
    bar->setMaximum(most);
    bar->setValue(qMin(done, most));
}

bool WorkStrip::TakeTurn()
{
    if (isHidden() && sinceStart.elapsed() > Moment)
        show();
    return scope->Turn();
}

/// Goes before what holds back all input from a pass.
bool WorkStrip::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == cmdStop && event->type() == QEvent::MouseButtonPress)
        scope->Stop(StopReason::Break);
    if (watched != window() || event->type() != QEvent::Close)
        return false;
    closing = true;
    scope->Stop(StopReason::Close);
    event->ignore();
    return true;
}
