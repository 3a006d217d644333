#pragma once

#include <QElapsedTimer>
#include <QStatusBar>
#include <QTimer>
#include <array>

class QLabel;
class QProgressBar;

/// The status bar with its six panels, the notice that takes the path's place for some seconds, and the progress bar
/// that lies over all of it.
class StatusPanels : public QStatusBar
{
    Q_OBJECT

public:
    explicit StatusPanels(QWidget* parent = nullptr);

    /// Panels count from 1. `picture`: image of the list "mode", 0 for none.
    void SetPanel(int panel, const QString& text, int picture);
    QString PanelText(int panel) const;
    /// Panels 4 to 6: a key that is off is shown dim.
    void ShowKey(int panel, bool on);

    /// The path says whether the text in front is saved.
    void SetUnsaved(bool now);

    void ShowNotice(const QString& text);

    /// Painted at once, at most every 50 ms, without taking events.
    void ShowProgress(int maximum, int value);
    void HideProgress();
    QProgressBar* Progress() const { return progress; }

    /// Takes a widget into the right end, where the progress bar leaves it free while it shows.
    void AddLive(QWidget* widget);
    void FitProgress();

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowPath();
    void ShowPathText(const QString& text);
    void PaintProgress();

    struct Panel
    {
        QLabel* Picture = nullptr;
        QLabel* Text = nullptr;
    };
    std::array<Panel, 6> panels;
    QString path;
    bool unsaved = false;
    QString pathText; ///< of its panel in full
    QTimer noticeEnd;
    QProgressBar* progress;
    QWidget* live = nullptr;
    QElapsedTimer painted;
    QTimer paintLater; ///< a value that came too soon behind the last one painted
    int latest = 0;
};
