#pragma once

#include "level/level_palette.h"
#include "sets/first_levels.h"

#include <QWidget>
#include <array>

class QLabel;

/// Small maps of a game's first levels, side by side.
class SetMaps : public QWidget
{
    Q_OBJECT

public:
    static constexpr size_t Most = 3;

    explicit SetMaps(QWidget* parent);

    /// `game`: its name, which its palette goes by. The palette may come a moment later.
    void Show(std::vector<FirstLevel> levels, const QString& game);
    QLabel* Map(size_t number) const { return labels.at(number); }

private:
    void Draw();

    std::array<QLabel*, Most> labels{};
    std::vector<FirstLevel> shown;
    MapPainter painter;
    QString palette; ///< path of the one that the painter has
};
