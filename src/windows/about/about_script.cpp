#include "windows/about/about_script.h"

namespace {

constexpr int ScrollTicks = 34;
constexpr double ScrollStep = 0.5;
constexpr int SlideTicks = 40;

} // namespace

AboutScript::AboutScript(const QString& whole) : text(whole)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

void AboutScript::Tick()
{
    if ((smith == Coming || smith == Leaving) && ++slideTicks == SlideTicks) {
        smith = smith == Coming ? Here : Gone;
        slideTicks = 0;
    }
    if (scrollTicks > 0) {
        top -= ScrollStep;
        if (--scrollTicks == 0) {
            height += LineHeight;
            typed += u'\n';
        }
    } else if (!broken && place < text.size()) {
        Take(text.at(place++));
    }
}

void AboutScript::Take(QChar next)
{
    if (next == u'\n') {
        scrollTicks = ScrollTicks;
    } else if (next == u'#') {
        broken = true;
    } else if (next == u'>') {
        if (smith == Away)
            smith = Coming;
        else if (smith == Coming || smith == Here)
            smith = Leaving;
        slideTicks = 0;
    } else {
        typed += next;
    }
}

bool AboutScript::Done() const
{
    return (broken || place == text.size()) && scrollTicks == 0 && smith != Coming && smith != Leaving;
}

double AboutScript::SmithShare() const
{
    const double share = double(slideTicks) / SlideTicks;
    return smith == Coming ? share : smith == Leaving ? 1 - share : smith == Here ? 1 : 0;
}
