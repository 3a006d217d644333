#include "windows/images/fit_choice.h"

#include "graphics/sheet.h"

#include <QComboBox>
#include <QFormLayout>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

struct FitRow
{
    films::Fit How;
    const char* Caption;
};
constexpr FitRow FitRows[] = {{films::Fit::TilesOnly, "Take 32 by 32 only"},
                              {films::Fit::Whole, "Scale the whole frame"},
                              {films::Fit::Middle, "Scale the square in the middle"},
                              {films::Fit::Part, "Scale a part"}};

QSpinBox* PixelBox(const char* name, int least, QWidget* parent)
{
    auto* made = new QSpinBox(parent);
    made->setObjectName(QString::fromLatin1(name));
    made->setRange(least, int(film::LongestSide) - 1);
    made->setKeyboardTracking(false); // a number that is still being typed starts no run
    return made;
}

} // namespace

FitChoice::FitChoice(QWidget* parent)
    : QWidget(parent),
      cmbFit(new QComboBox(this)),
      place(new QWidget(this)),
      spnX(PixelBox("spnX", 0, place)),
      spnY(PixelBox("spnY", 0, place)),
      spnSide(PixelBox("spnSide", 1, place))
{
    cmbFit->setObjectName(QStringLiteral("cmbFit"));
    cmbFit->setAccessibleName(QStringLiteral("Frames of another size"));
    for (const FitRow& row : FitRows)
        cmbFit->addItem(QString::fromLatin1(row.Caption));
    spnSide->setValue(TileSize);
    auto* form = new QFormLayout(place);
    form->setContentsMargins({});
    form->addRow(QStringLiteral("Left"), spnX);
    form->addRow(QStringLiteral("Top"), spnY);
    form->addRow(QStringLiteral("Side"), spnSide);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(cmbFit);
    column->addWidget(place);
    place->hide();
    connect(cmbFit, &QComboBox::currentIndexChanged, this, &FitChoice::Choose);
    for (QSpinBox* box : {spnX, spnY, spnSide})
        connect(box, &QSpinBox::valueChanged, this, &FitChoice::Changed);
}

films::Plan FitChoice::Plan() const
{
    const auto of = [](const QSpinBox* box) { return quint32(box->value()); };
    return {.How = FitRows[cmbFit->currentIndex()].How,
            .X = of(spnX),
            .Y = of(spnY),
            .Width = of(spnSide),
            .Height = of(spnSide)};
}

bool FitChoice::SetFrameSize(QSize size)
{
    if (size.isEmpty() || size == frame)
        return false;
    const QSignalBlocker quietX(spnX), quietY(spnY), quietSide(spnSide);
    frame = size;
    const int shorter = qMin(size.width(), size.height());
    spnX->setMaximum(size.width() - 1);
    spnY->setMaximum(size.height() - 1);
    spnSide->setMaximum(shorter);
    const int side = qMin(TileSize, shorter);
    spnSide->setValue(side);
    spnX->setValue((size.width() - side) / 2);
    spnY->setValue((size.height() - side) / 2);
    return Plan().How == films::Fit::Part;
}

void FitChoice::Choose()
{
    place->setVisible(FitRows[cmbFit->currentIndex()].How == films::Fit::Part);
    emit Changed();
}
