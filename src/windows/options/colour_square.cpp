#include "windows/options/colour_square.h"

#include "platform/images/contrast.h"
#include "windows/parts/dialog_help.h"

#include <QColorDialog>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace {

constexpr QSize SquareSize{34, 22}; // pixels at 96 dpi

} // namespace

ColourSquare::ColourSquare(const QString& name, const QString& told, QWidget* parent)
    : QAbstractButton(parent), meaning(told)
{
    setObjectName(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, &ColourSquare::AskColour);
    SetColour(0);
}

void ColourSquare::SetColour(int bgr)
{
    colour = bgr;
    const QString text = meaning + QStringLiteral(": ") + FromBgr(bgr).name().toUpper();
    setToolTip(text);
    setAccessibleName(text);
    update();
}

QSize ColourSquare::sizeHint() const
{
    return {Pixels(*this, SquareSize.width()), Pixels(*this, SquareSize.height())};
}

void ColourSquare::AskColour()
{
    const ModalScope scope;
    const QColor chosen = QColorDialog::getColor(FromBgr(colour), this, meaning);
    if (chosen.isValid())
        emit Chosen(ToBgr(chosen));
}

void ColourSquare::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor fill = FromBgr(colour);
    painter.fillRect(rect().adjusted(2, 2, -2, -2), fill);
    painter.setPen(Faded(palette().color(QPalette::WindowText), palette().color(QPalette::Window)));
    painter.drawRect(rect().adjusted(2, 2, -3, -3));
    if (!hasFocus())
        return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}
