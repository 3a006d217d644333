#pragma once

#include "platform/images/films.h"

#include <QSize>
#include <QWidget>

class QComboBox;
class QSpinBox;

/// What becomes of frames that are not 32 by 32: nothing, the whole of them scaled, the square in the middle, or a
/// square that is chosen here.
class FitChoice : public QWidget
{
    Q_OBJECT

public:
    explicit FitChoice(QWidget* parent);

    films::Plan Plan() const;

    /// How large frames are, once that is known: the square lies within. True: a part is chosen, and it is another now.
    bool SetFrameSize(QSize size);

signals:
    void Changed();

private:
    void Choose();

    QComboBox* cmbFit;
    QWidget* place;
    QSpinBox *spnX, *spnY, *spnSide;
    QSize frame;
};
