#pragma once

#include <QString>

/// The play of the About window, a step a tick: a text is typed into a box that moves up and grows at each line end.
/// ">" lets the smith come in, a second one lets him go and brings the letter; "#" ends it all with the broken stone.
/// Lengths are pixels of a 96-dpi screen.
class AboutScript
{
public:
    static constexpr int LineHeight = 18; ///< by which the box grows a line

    /// Lines end with a carriage return, a line feed or both.
    explicit AboutScript(const QString& text);

    void Tick();
    bool Done() const; ///< no tick changes anything any more

    QString Typed() const { return typed; } ///< with line feeds
    double Top() const { return top; }      ///< how far the box has moved; upward is negative
    int Height() const { return height; }
    double SmithShare() const; ///< 0: outside, 1: fully in
    bool LetterShows() const { return smith == Gone; }
    bool Broken() const { return broken; }

private:
    void Take(QChar next);

    enum Smith { Away, Coming, Here, Leaving, Gone };

    QString text, typed;
    qsizetype place = 0;
    double top = 0;
    int height = LineHeight;
    int scrollTicks = 0; ///< left of the present line end
    Smith smith = Away;
    int slideTicks = 0;
    bool broken = false;
};
