#include "platform/images/contrast.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double MiddleLuminance = 0.18; ///< black and white stand out from it alike
constexpr double MostFaded = 0.5;

double Luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

double Contrast(const QColor& one, const QColor& other)
{
    const double a = Luminance(one), b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor MixedColour(const QColor& one, const QColor& other, double share)
{
    const auto part = [share](double a, double b) { return float(a + (b - a) * share); };
    return QColor::fromRgbF(part(one.redF(), other.redF()), part(one.greenF(), other.greenF()),
                            part(one.blueF(), other.blueF()));
}

bool IsDarkColour(const QColor& colour)
{
    return Luminance(colour) < MiddleLuminance;
}

QColor Legible(QColor colour, const QColor& background)
{
    const QColor far = IsDarkColour(background) ? Qt::white : Qt::black;
    for (double share = 0.1; share <= 1 && Contrast(colour, background) < TextContrast; share += 0.1)
        colour = MixedColour(colour, far, share);
    return colour;
}

QColor Faded(const QColor& text, const QColor& background)
{
    for (double share = MostFaded; share > 0; share -= 0.05)
        if (const QColor faded = MixedColour(text, background, share); Contrast(faded, background) >= TextContrast)
            return faded;
    return text;
}

QColor FromBgr(int bgr)
{
    return {bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF};
}

int ToBgr(const QColor& colour)
{
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}
