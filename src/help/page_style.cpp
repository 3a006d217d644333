#include "help/page_style.h"

#include <algorithm>
#include <cmath>

namespace {

double Luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other)
{
    const double a = Luminance(one), b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor Mixed(const QColor& one, const QColor& other, double share)
{
    const auto part = [share](double a, double b) { return float(a + (b - a) * share); };
    return QColor::fromRgbF(part(one.redF(), other.redF()), part(one.greenF(), other.greenF()),
                            part(one.blueF(), other.blueF()));
}

} // namespace

QColor Legible(QColor colour, const QColor& background)
{
    const QColor far = Luminance(background) < 0.18 ? Qt::white : Qt::black;
    for (double share = 0.1; share <= 1 && Contrast(colour, background) < 4.5; share += 0.1)
        colour = Mixed(colour, far, share);
    return colour;
}

QString PageStyle(const QPalette& palette)
{
    const QColor base = palette.color(QPalette::Base), text = palette.color(QPalette::Text);
    const QString rules = QStringLiteral("body { color: %1; }"
                                         "a { color: %2; text-decoration: none; }"
                                         "h1, h2, h3 { color: %1; margin-bottom: 4px; }"
                                         "h1 { margin-top: 4px; } h2 { margin-top: 18px; } h3 { margin-top: 12px; }"
                                         "p, li { margin-top: 3px; margin-bottom: 5px; }"
                                         "code, pre { font-family: monospace; background-color: %3; }"
                                         "kbd { font-weight: bold; }"
                                         "th { text-align: left; background-color: %3; }"
                                         "th, td { padding: 3px 10px 3px 4px; }"
                                         ".note { background-color: %3; }"
                                         ".see { margin-top: 18px; }"
                                         ".faint { color: %4; }");
    return rules.arg(text.name(), Legible(palette.color(QPalette::Link), base).name(), Mixed(base, text, 0.08).name(),
                     Legible(Mixed(text, base, 0.4), base).name());
}
