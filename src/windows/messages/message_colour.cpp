#include "windows/messages/message_colour.h"

#include <QPainter>
#include <QStringList>
#include <algorithm>

namespace {

struct ColourRow
{
    const char* Code;
    std::array<int, 3> Start, Step, Title;
};

constexpr ColourRow ColourCodes[] = {
    {"blu", {0, 0, 255}, {3, 3, 3}, {200, 255, 255}}, {"red", {255, 0, 0}, {3, 3, 3}, {255, 240, 240}},
    {"gre", {0, 90, 0}, {3, 3, 3}, {220, 255, 220}},  {"pur", {20, 0, 100}, {3, 3, 3}, {210, 210, 255}},
    {"whi", {2, 2, 2}, {2, 2, 2}, {255, 255, 255}},   {"yel", {90, 90, 0}, {3, 3, 3}, {255, 255, 100}},
    {"bro", {90, 30, 0}, {3, 2, 2}, {255, 240, 100}},
};

} // namespace

QColor MessageColours::Band(int number) const
{
    std::array<int, 3> part{};
    for (size_t i = 0; i < part.size(); ++i)
        part[i] = int(std::clamp<qint64>(Start[i] + qint64(number) * Step[i], 0, 255));
    return {part[0], part[1], part[2]};
}

MessageColours ColoursOf(const QString& code)
{
    for (const ColourRow& row : ColourCodes)
        if (code == QLatin1String(row.Code))
            return {1, row.Start, row.Step, QColor(row.Title[0], row.Title[1], row.Title[2])};
    const QStringList parts = code.split(QLatin1Char('_'));
    if (parts.size() != 7)
        return {};
    const auto number = [&](int at, int limit) { return std::clamp(parts.at(at).trimmed().toInt(), -limit, limit); };
    return {number(0, 1) == 0 ? 0 : 1,
            {std::max(0, number(1, 255)), std::max(0, number(2, 255)), std::max(0, number(3, 255))},
            {number(4, 255), number(5, 255), number(6, 255)},
            Qt::white};
}

void PaintForm(QPainter& painter, const QSize& window, int stripHeight, const MessageColours& colours)
{
    const bool across = colours.Direction == 1;
    const int length = across ? window.width() : window.height();
    const int band = std::max(1, length / 100);
    for (int number = 0, at = 0; at < length; ++number, at += band) {
        const QRect place = across ? QRect(at, 0, band, stripHeight) : QRect(0, at, window.width(), band);
        painter.fillRect(place, colours.Band(number));
    }
}

QColor ReadableOn(const QColor& background)
{
    return qGray(background.rgb()) < 128 ? Qt::white : Qt::black;
}
