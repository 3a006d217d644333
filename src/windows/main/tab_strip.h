#pragma once

#include "frame/host_ports.h"

#include <QTabBar>
#include <QWidget>
#include <array>
#include <functional>

class QToolButton;

/// ssTxtWindows: the eight tabs. Hidden ones take no room. The strip itself changes no document: it tells what the
/// user did with the mouse or the keys.
class TabStrip : public QWidget
{
    Q_OBJECT

public:
    explicit TabStrip(QWidget* parent = nullptr);

    void SetTab(int tab, const TabFace& face);
    void SetUnsaved(int tab, bool now); ///< a dot on its picture
    void Select(int tab);               ///< by code: tells Changed, not Activated
    int Selected() const { return bar->currentIndex(); }
    void SelectNext(int step); ///< by key: the next (1) or previous (-1) visible tab, around the ends
    QTabBar* Bar() const { return bar; }

    std::function<QString(int tab)> TipOf;  ///< asked when the mouse rests on a tab
    std::function<QString(int tab)> FileOf; ///< file name of a tab's text: tells tabs of one caption apart

signals:
    void Changed(int tab); ///< any change of the selected tab
    void Activated();      ///< the user chose the selected tab
    void NewWanted();      ///< right button, plus button
    void CloseWanted();    ///< middle button or close button; the tab is selected by then

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void CurrentChanged(int tab);
    void ShowPicture(int tab);
    QString TextOf(int tab) const;
    bool KeyPressed(int key);
    void Released(Qt::MouseButton button, int tab);
    void CloseByMouse(int tab);
    void NameCloseButtons();

    QTabBar* bar;
    QToolButton* plus;
    std::array<TabFace, 8> faces;
    std::array<bool, 8> unsaved{};
    bool byCode = false;
    bool leftDown = false; ///< a press selects, its release activates
};
