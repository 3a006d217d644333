#pragma once

#include "platform/processes/turn.h"

#include <QElapsedTimer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;
class RunScope;

/// A line at a window's foot that tells of work in progress: what it is, how far it has come, a button that stops it.
/// It shows only while work takes longer than a moment. Meanwhile no window takes other input; Esc and closing the
/// window stop as the button does, and the window is closed once the work has returned.
class WorkStrip : public QWidget
{
    Q_OBJECT

public:
    explicit WorkStrip(QWidget* window);

    /// Runs `work` with a turn to call. False if it was stopped. `most`: what Tell counts up to, 0 for no telling.
    bool Run(const QString& what, int most, const std::function<void(const Turn&)>& work);
    void Tell(int done, const QString& what);
    void Tell(int done, int most); ///< where it turns out on the way how much there is; 0: unknown

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool TakeTurn();

    QLabel* label;
    QProgressBar* bar;
    QPushButton* cmdStop;
    RunScope* scope = nullptr; ///< of the work in progress
    bool closing = false;
    QElapsedTimer sinceStart;
};
