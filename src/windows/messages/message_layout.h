#pragma once

#include <QRect>
#include <functional>
#include <vector>

/// What the message window is made of, in pixels.
struct MessageParts
{
    double Scale = 1;                      ///< pixels for one of a 96-dpi screen
    std::function<QSize(int)> MeasureText; ///< size of the text if no line is wider than this
    QSize Title;                           ///< size of the title's text
    std::vector<int> Captions;             ///< widths of the buttons' captions
    int ButtonHeight = 0;                  ///< what the style wants
    int ScrollBar = 0;                     ///< width of a scroll bar
    QSize Screen;                          ///< the window never exceeds it
};

struct MessageLayout
{
    QSize Window;
    QRect Strip, Icon, Text;
    std::vector<QRect> Buttons;
    bool Scrolls = false; ///< the text is higher than its place
};

/// Places everything: the window grows with text, title and buttons up to the screen; then lines wrap, the text
/// scrolls and buttons take further rows.
MessageLayout LayoutMessage(const MessageParts& parts);
