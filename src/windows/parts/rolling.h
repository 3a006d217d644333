#pragma once

#include <QScrollArea>

/// As large as what is in it, and rolled only where the screen is too small for that.
class Rolling : public QScrollArea
{
public:
    Rolling(QWidget* inside, QWidget* parent);

    QSize sizeHint() const override { return widget()->sizeHint(); }
    QSize minimumSizeHint() const override;
};
