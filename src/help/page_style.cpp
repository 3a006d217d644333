#include "help/page_style.h"

#include "platform/images/contrast.h"

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
    return rules.arg(text.name(), Legible(palette.color(QPalette::Link), base).name(),
                     MixedColour(base, text, 0.08).name(), Legible(MixedColour(text, base, 0.4), base).name());
}
