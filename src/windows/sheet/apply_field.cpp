#include "windows/sheet/apply_field.h"

#include <QKeyEvent>

namespace {

bool IsEditing(const QKeyEvent& event)
{
    static constexpr int Keys[] = {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left, Qt::Key_Right,
                                   Qt::Key_Home,      Qt::Key_End,    Qt::Key_Tab,  Qt::Key_Backtab};
    return event.modifiers() & (Qt::ControlModifier | Qt::AltModifier) ||
           std::find(std::begin(Keys), std::end(Keys), event.key()) != std::end(Keys);
}

bool IsNumber(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(),
                       [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
}

} // namespace

ApplyField::ApplyField(Takes kind, QWidget* parent) : QLineEdit(parent), takes(kind)
{
    // Also what is pasted or cleared waits.
    connect(this, &QLineEdit::textEdited, this, [this] { SetWaiting(true); });
}

void ApplyField::Show(const QString& text)
{
    setText(text);
    SetWaiting(false);
}

void ApplyField::keyPressEvent(QKeyEvent* event)
{
    const QString typed = event->text();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool fits = !typed.isEmpty() && (takes == Takes::Text ? typed.at(0).isPrint() : IsNumber(typed));
    if (event->key() == Qt::Key_Escape || (!enter && (fits || typed.isEmpty() || IsEditing(*event))))
        QLineEdit::keyPressEvent(event);
    else
        Apply(); // any other key is swallowed
}

void ApplyField::focusOutEvent(QFocusEvent* event)
{
    if (waiting)
        Apply();
    QLineEdit::focusOutEvent(event);
}

void ApplyField::Apply()
{
    if (takes == Takes::Digits && !IsNumber(text()))
        setText(QString()); // pasted letters are no number
    SetWaiting(false);
    emit Applied(text());
}

void ApplyField::SetWaiting(bool on)
{
    waiting = on;
    QPalette colours = palette();
    const QColor colour = on ? QColor(Qt::red) : parentWidget()->palette().color(QPalette::Active, QPalette::Text);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) // a field that is off stays dim
        colours.setColor(group, QPalette::Text, colour);
    setPalette(colours);
}
