#pragma once

#include <QTimer>
#include <QWidget>

/// The middle of the main window: the text side, the splitter picSplit and the media side, once it has one. Lengths
/// are told in twips, 1440 to an inch of the screen.
class PaneSplit : public QWidget
{
    Q_OBJECT

public:
    explicit PaneSplit(QWidget* text);

    /// Takes the lists that stand right of the text. Without them the text has the whole width.
    void SetMedia(QWidget* lists);

    /// Fits both sides to the window; the splitter goes back to where the media side has its own width.
    void LayoutMainWindow();

    /// picSplit's left edge for a mouse at `wanted` in a window of this width.
    static int SplitFor(int wanted, int width);

signals:
    void LaidOut();
    void Dragged(); ///< the user has moved the splitter

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int Pixel(int twips) const;
    int Twips(int pixels) const;
    void DragTo(int x);

    QWidget *textSide, *picSplit, *ssML = nullptr;
    QTimer tmrResize;
    bool resizePending = false;
};
