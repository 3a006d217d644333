#include "windows/messages/message_layout.h"

#include <algorithm>

namespace {

// All in pixels of a 96-dpi screen.
constexpr int StandardWidth = 461, StandardHeight = 118, StripHeight = 18;
constexpr int TextBeside = 90, TextLeft = 68, TextTop = 36, StandardTextHeight = 26;
constexpr int IconLeft = 10, IconTop = 26, IconSize = 48;
constexpr int ButtonsBelowText = 59, WindowBelowText = 92;
constexpr int ButtonWidth = 76, ButtonHeight = 25, ButtonGap = 5, CaptionBeside = 20, ButtonsBeside = 10;

struct ButtonRow
{
    std::vector<int> Widths;
    int Total = 0; ///< widths, each with its gap
};

std::vector<ButtonRow> ButtonRows(const MessageParts& parts, int widest, const std::function<int(int)>& px)
{
    std::vector<ButtonRow> rows(1);
    for (const int caption : parts.Captions) {
        const int width = std::min(std::max(caption + px(CaptionBeside), px(ButtonWidth)), widest - px(ButtonGap));
        if (!rows.back().Widths.empty() && rows.back().Total + width + px(ButtonGap) > widest)
            rows.emplace_back();
        rows.back().Widths.push_back(width);
        rows.back().Total += width + px(ButtonGap);
    }
    return rows;
}

} // namespace

MessageLayout LayoutMessage(const MessageParts& parts)
{
    const auto px = [&](int at96) { return int(at96 * parts.Scale + 0.5); };
    const std::vector<ButtonRow> rows = ButtonRows(parts, parts.Screen.width() - px(ButtonsBeside), px);
    const int buttonHeight = std::max(parts.ButtonHeight, px(ButtonHeight));
    const int strip = std::max(px(StripHeight), parts.Title.height());
    // What a title or button of a large font needs beyond the told heights.
    const int stripExtra = strip - px(StripHeight);
    const int rowsExtra = buttonHeight - px(ButtonHeight) + (int(rows.size()) - 1) * (buttonHeight + px(ButtonGap));

    MessageLayout layout;
    QSize text = parts.MeasureText(parts.Screen.width() - px(TextBeside));
    const int highest = parts.Screen.height() - px(WindowBelowText) - stripExtra - rowsExtra;
    if (text.height() > highest) {
        layout.Scrolls = true;
        text = QSize(std::min(text.width() + parts.ScrollBar, parts.Screen.width() - px(TextBeside)),
                     std::max(highest, 1));
    }

    int width =
        std::max(px(StandardWidth), text.width() > px(StandardWidth - TextBeside) ? text.width() + px(TextBeside) : 0);
    for (const ButtonRow& row : rows)
        if (width < row.Total)
            width = row.Total + px(ButtonsBeside);
    width = std::min(std::max(width, parts.Title.width()), parts.Screen.width());

    const bool high = text.height() > px(StandardTextHeight);
    int top = stripExtra + (high ? text.height() + px(ButtonsBelowText) : px(StandardHeight - 33));
    const int height = stripExtra + rowsExtra + (high ? text.height() + px(WindowBelowText) : px(StandardHeight));

    layout.Window = QSize(width, height);
    layout.Strip = QRect(0, 0, width, strip);
    layout.Icon = QRect(px(IconLeft), px(IconTop) + stripExtra, px(IconSize), px(IconSize));
    const int middle = px(IconTop) + (px(IconSize) - text.height()) / 2; // a short text stands beside the icon's middle
    layout.Text = QRect(px(TextLeft), stripExtra + std::max(px(TextTop), middle),
                        std::max(text.width(), width - px(TextBeside)), text.height());
    for (const ButtonRow& row : rows) {
        int left = width / 2 - row.Total / 2;
        for (const int wide : row.Widths) {
            layout.Buttons.emplace_back(left, top, wide, buttonHeight);
            left += wide + px(ButtonGap);
        }
        top += buttonHeight + px(ButtonGap);
    }
    return layout;
}
