#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

class QLabel;
class QToolButton;
class QWidget;
class StatusPanels;

/// What runs, as the user sees and ends it: a panel in the status bar tells its name after half a second and has a
/// button that stops it, Esc stops it in every window of ours (held down also in those that it opens itself), and a
/// pass gets no other key or click.
class RunWatch : public QObject
{
    Q_OBJECT

public:
    RunWatch(QWidget* window, StatusPanels& panels);

    void WorkChanged(); ///< a run or a modal window has begun or ended
    QWidget* Panel() const { return panel; }
    QToolButton* StopButton() const { return stop; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowPanel();
    bool TakesEscape(QObject* watched, const QEvent& event) const;
    bool IsHeldBack(QObject* watched, const QEvent& event) const;

    QPointer<QWidget> window;
    StatusPanels& status;
    QWidget* panel;
    QLabel* what;
    QToolButton* stop;
    QTimer soon, refresh;
};
