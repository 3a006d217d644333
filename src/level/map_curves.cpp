#include "level/map_painting.h"

#include <cmath>

namespace {

/// Halves go to the even one.
int Nearest(float position)
{
    return int(std::nearbyint(position));
}

/// Up to here a float holds every whole number and a half, so that walking step by step is exact enough and short. What
/// begins or ends beyond is reckoned where it crosses the map instead.
constexpr qint64 LongestWalk = 1 << 20;

bool IsNear(qint32 number)
{
    return qAbs(qint64(number)) <= LongestWalk;
}

/// Walks along one coordinate in whole steps while the other one follows.
template <class Plot>
void Walk(qint32 from, qint32 to, qint32 otherFrom, float otherStep, Plot plot)
{
    const int step = from < to ? 1 : -1;
    auto other = float(otherFrom);
    for (qint32 at = from; at != to;) {
        at += step;
        other += otherStep;
        plot(at, Nearest(other));
    }
}

/// The same for lines that reach far out: only where the first coordinate lies in the map, from 0 up to `size`.
template <class Plot>
void WalkFar(qint32 from, qint32 to, qint32 otherFrom, qint32 otherTo, int size, Plot plot)
{
    const double slope = double(qint64(otherTo) - otherFrom) / double(qint64(to) - from);
    const auto [low, high] = std::minmax(from, to);
    for (qint32 at = std::max(low, 0); at <= high && at < size; ++at) {
        const double other = otherFrom + slope * double(qint64(at) - from);
        if (std::abs(other) < LongestWalk)
            plot(at, int(std::nearbyint(other)));
    }
}

/// Where a circle's cells lie, apart from the map: a mark that can not leak into it.
class CircleMarks
{
public:
    CircleMarks(const LevelMap& ofMap, const CellTest& ofTest)
        : map(ofMap), test(ofTest), marked(size_t(map.Width()) * map.Height())
    {
    }

    void Mark(int x, int y)
    {
        if (map.Contains(x, y) && test.Passes(map.At(x, y)))
            marked[Place(x, y)] = true;
    }
    bool Has(int x, int y) const { return map.Contains(x, y) && marked[Place(x, y)]; }

private:
    size_t Place(int x, int y) const { return size_t(y) * map.Width() + x; }

    const LevelMap& map;
    const CellTest& test;
    std::vector<bool> marked;
};

/// The four points that lie right and left of the centre, below and above. The lower half stands a cell higher, so that
/// a circle is an even number of cells high.
template <class Number>
void MarkFour(CircleMarks& marks, const LevelBox& circle, Number a, Number d)
{
    const auto x = Number(circle.X1), y = Number(circle.Y1);
    for (const Number column : {a + x, -a + x})
        for (const Number row : {d + y - 1, -d + y})
            if (std::abs(column) < LongestWalk && std::abs(row) < LongestWalk)
                marks.Mark(int(std::nearbyint(column)), int(std::nearbyint(row)));
}

/// Two recurrences, one a coordinate, that swing against each other.
void TraceCircle(CircleMarks& marks, const LevelBox& circle)
{
    constexpr float QuarterTurn = 3.1415927F / 2;
    const float e = 1.0F / float(std::max(circle.X2, circle.Y2));
    auto a = float(circle.X2), b = float(circle.Y2);
    float c = 0, d = 0, f = 0, g = -a * e;
    for (float t = 0; t <= QuarterTurn; t += e) {
        a = c * e + a;
        d = b * e + d;
        c = c + g;
        b = f + b;
        g = -a * e;
        f = -d * e;
        MarkFour(marks, circle, a, d);
    }
}

/// For radii that a walk would take minutes for: the ellipse itself, at each column and row of the map.
void ReckonCircle(CircleMarks& marks, const LevelBox& circle, const LevelMap& map)
{
    const double rx = circle.X2, ry = circle.Y2;
    const auto other = [](double along, double of, double across) {
        return across * std::sqrt(1 - (along / of) * (along / of));
    };
    for (int x = 0; x < map.Width(); ++x)
        if (const double a = std::abs(double(x) - circle.X1); a <= rx)
            MarkFour(marks, circle, a, other(a, rx, ry));
    for (int y = 0; y < map.Height(); ++y)
        for (const double d : {double(y) - circle.Y1 + 1, double(circle.Y1) - y})
            if (d >= 0 && d <= ry)
                MarkFour(marks, circle, other(d, ry, rx), d);
}

} // namespace

void PaintLine(LevelMap& map, const LevelBox& line, qint32 value, const CellTest& test)
{
    PlotCell(map, line.X1, line.Y1, value, test);
    PlotCell(map, line.X2, line.Y2, value, test);
    const qint64 wide = qAbs(qint64(line.X2) - line.X1), high = qAbs(qint64(line.Y2) - line.Y1);
    const bool near = IsNear(line.X1) && IsNear(line.Y1) && IsNear(line.X2) && IsNear(line.Y2);
    const auto alongY = [&](int y, int x) { PlotCell(map, x, y, value, test); };
    const auto alongX = [&](int x, int y) { PlotCell(map, x, y, value, test); };
    const float stepX = line.X1 < line.X2 ? 1 : -1, stepY = line.Y1 < line.Y2 ? 1 : -1;
    if (wide <= high) {
        if (near)
            Walk(line.Y1, line.Y2, line.X1, stepX * float(wide) / float(high), alongY);
        else
            WalkFar(line.Y1, line.Y2, line.X1, line.X2, map.Height(), alongY);
    } else if (near) {
        Walk(line.X1, line.X2, line.Y1, stepY * float(high) / float(wide), alongX);
    } else {
        WalkFar(line.X1, line.X2, line.Y1, line.Y2, map.Width(), alongX);
    }
}

void PaintCircle(LevelMap& map, const LevelBox& circle, qint32 value, const CellTest& test)
{
    if (circle.X2 <= 0 || circle.Y2 <= 0)
        return;
    CircleMarks marks(map, test);
    if (IsNear(circle.X2) && IsNear(circle.Y2) && IsNear(circle.X1) && IsNear(circle.Y1))
        TraceCircle(marks, circle);
    else
        ReckonCircle(marks, circle, map);
    LevelMap painted = map;
    for (int y = 0; y < map.Height(); ++y)
        for (int x = 0; x < map.Width(); ++x) {
            if (!marks.Has(x, y))
                continue;
            painted.At(x, y) = value;
            if (marks.Has(x + 2, y))
                painted.At(x + 1, y) = value;
        }
    map = std::move(painted);
}
