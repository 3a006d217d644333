#include "windows/main/run_watch.h"

#include "frame/run_scope.h"
#include "windows/main/status_panels.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QToolButton>
#include <QWindow>
#include <algorithm>

namespace {

constexpr int ShowAfter = 500, RefreshEvery = 100; ///< ms
constexpr int LongestText = 40;                    ///< characters

/// What a pass must not get: it works on a text that no key or click may change meanwhile.
constexpr QEvent::Type InputEvents[] = {QEvent::MouseButtonPress,
                                        QEvent::MouseButtonRelease,
                                        QEvent::MouseButtonDblClick,
                                        QEvent::Wheel,
                                        QEvent::KeyPress,
                                        QEvent::KeyRelease,
                                        QEvent::ShortcutOverride,
                                        QEvent::Shortcut,
                                        QEvent::ContextMenu,
                                        QEvent::DragEnter,
                                        QEvent::Drop,
                                        QEvent::TouchBegin,
                                        QEvent::InputMethod};

bool IsEscape(const QObject* watched, const QEvent& event)
{
    return event.type() == QEvent::KeyPress && watched->isWindowType() &&
           static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

/// Esc that is held down in a window which the work has opened. One press only answers the window, and a macro may ask
/// for ever.
bool IsHeldEscape(const QObject* watched, const QEvent& event)
{
    return !RunInFront() && AnyRun() && IsEscape(watched, event) && static_cast<const QKeyEvent&>(event).isAutoRepeat();
}

QString TextOf(const RunScope& run)
{
    return run.Detail().isEmpty() ? run.Name() : run.Name() + QStringLiteral(": ") + run.Detail();
}

} // namespace

RunWatch::RunWatch(QWidget* mainWindow, StatusPanels& panels)
    : QObject(mainWindow),
      window(mainWindow),
      status(panels),
      panel(new QWidget(&panels)),
      what(new QLabel(panel)),
      stop(new QToolButton(panel))
{
    auto* line = new QHBoxLayout(panel);
    line->setContentsMargins(4, 0, 0, 0);
    line->setSpacing(4);
    line->addWidget(what);
    line->addWidget(stop);
    what->setTextFormat(Qt::PlainText);
    stop->setObjectName(QStringLiteral("cmdStopRuns"));
    stop->setText(QStringLiteral("\u25A0 Stop")); // the style's own sign is black on any ground
    stop->setAutoRaise(true);
    stop->setToolTip(QStringLiteral("Stops what is running (Esc)"));
    SetHelpSubject(panel, HelpIdFor("st_run"));
    status.AddLive(panel);
    panel->hide();
    soon.setSingleShot(true);
    soon.setInterval(ShowAfter);
    refresh.setInterval(RefreshEvery);
    connect(&soon, &QTimer::timeout, this, &RunWatch::ShowPanel);
    connect(&refresh, &QTimer::timeout, this, &RunWatch::ShowPanel);
    connect(stop, &QToolButton::clicked, this, [] { StopRuns(StopReason::Break); });
    QCoreApplication::instance()->installEventFilter(this);
}

void RunWatch::WorkChanged()
{
    if (RunInFront() && !panel->isVisible() && !soon.isActive())
        soon.start();
    if (AnyRun())
        return;
    soon.stop();
    refresh.stop();
    panel->hide();
    status.FitProgress();
}

void RunWatch::ShowPanel()
{
    const RunScope* run = RunInFront();
    if (!run)
        return;
    what->setText(what->fontMetrics().elidedText(TextOf(*run), Qt::ElideMiddle,
                                                 LongestText * what->fontMetrics().averageCharWidth()));
    what->setAccessibleName(QStringLiteral("Running: ") + TextOf(*run));
    stop->setEnabled(!run->Stopped());
    panel->show();
    refresh.start();
    status.FitProgress();
}

/// The key as it comes to the window: a disabled one hands it to no part.
bool RunWatch::TakesEscape(QObject* watched, const QEvent& event) const
{
    const RunScope* run = RunInFront();
    if (!run || !IsEscape(watched, event) || QApplication::activePopupWidget())
        return false;
    // In the main window what floats closes first, unless it is disabled.
    const bool mainWindow = window && watched == window->windowHandle();
    if (run->Kind() == RunKind::Beside && !mainWindow)
        return false;
    return run->Kind() == RunKind::Pass || !mainWindow || !window->isEnabled() || run->Kind() == RunKind::Macro;
}

bool RunWatch::IsHeldBack(QObject* watched, const QEvent& event) const
{
    const RunScope* run = RunInFront();
    if (!run || run->Kind() != RunKind::Pass || !watched->isWidgetType())
        return false;
    if (std::find(std::begin(InputEvents), std::end(InputEvents), event.type()) == std::end(InputEvents))
        return false;
    const auto* part = static_cast<QWidget*>(watched);
    return part != panel && !panel->isAncestorOf(part);
}

bool RunWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (TakesEscape(watched, *event)) {
        StopRuns(StopReason::Esc);
        return true;
    }
    if (IsHeldEscape(watched, *event))
        StopRuns(StopReason::Esc); // and the window closes by it
    return IsHeldBack(watched, *event);
}
