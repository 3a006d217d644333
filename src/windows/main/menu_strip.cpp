#include "windows/main/menu_strip.h"

#include <QEvent>
#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <QWidget>

namespace {

class StripWidget : public QWidget
{
public:
    StripWidget(const QString& title, QWidget* parent) : QWidget(parent), caption(title)
    {
        setAccessibleName(caption);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        SetTitleFont();
    }

    QSize sizeHint() const override
    {
        const QFontMetrics metrics(font());
        return {metrics.horizontalAdvance(caption) + 4 * Margin(), metrics.height() + Margin()};
    }

protected:
    void changeEvent(QEvent* event) override
    {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::StyleChange || event->type() == QEvent::ApplicationFontChange)
            SetTitleFont();
    }

    void paintEvent(QPaintEvent*) override
    {
        const QColor strong = palette().color(QPalette::Active, QPalette::Highlight);
        const QColor ground = palette().color(QPalette::Active, QPalette::Window);
        QLinearGradient gradient(rect().topLeft(), rect().topRight());
        gradient.setColorAt(0, strong);
        gradient.setColorAt(0.55, strong);
        gradient.setColorAt(1, ground);
        QPainter painter(this);
        painter.fillRect(rect(), gradient);
        painter.setPen(palette().color(QPalette::Active, QPalette::HighlightedText));
        painter.drawText(rect().adjusted(Margin(), 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, caption);
    }

private:
    int Margin() const { return QFontMetrics(font()).height() / 3; }

    void SetTitleFont()
    {
        QFont title = parentWidget()->font();
        title.setBold(true);
        if (font() != title)
            setFont(title);
    }

    QString caption;
};

} // namespace

MenuStrip::MenuStrip(const QString& control, const QString& caption, QObject* parent) : QWidgetAction(parent)
{
    setObjectName(control);
    setText(caption);
    setEnabled(false);
}

void MenuStrip::Show(bool on)
{
    setVisible(on);
    for (QWidget* widget : createdWidgets()) // the menu only takes its place away
        widget->setVisible(on);
}

QWidget* MenuStrip::createWidget(QWidget* parent)
{
    return new StripWidget(text(), parent);
}
