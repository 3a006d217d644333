#include "windows/options/option_parts.h"

#include "windows/options/colour_square.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVariant>

namespace {

constexpr char KeysProperty[] = "settingKeys";

QString WithoutLetter(QString caption)
{
    return caption.remove(u'&');
}

QString LabelOf(QWidget& part)
{
    const auto* form = qobject_cast<QFormLayout*>(part.parentWidget()->layout());
    const auto* label = form ? qobject_cast<QLabel*>(form->labelForField(&part)) : nullptr;
    return label ? label->text() : QString();
}

QString NameOf(QWidget& part)
{
    if (const auto* square = qobject_cast<ColourSquare*>(&part))
        return square->Meaning();
    if (!part.accessibleName().isEmpty())
        return part.accessibleName();
    if (const auto* button = qobject_cast<QAbstractButton*>(&part))
        return WithoutLetter(button->text());
    return LabelOf(part);
}

QString FrameOf(const QWidget& part)
{
    for (const QWidget* around = part.parentWidget(); around; around = around->parentWidget())
        if (const auto* frame = qobject_cast<const QGroupBox*>(around))
            return frame->title();
    return {};
}

} // namespace

std::vector<OptionPart> PartsOf(const QWidget& content)
{
    std::vector<OptionPart> parts;
    for (QWidget* part : content.findChildren<QWidget*>()) {
        const bool takesKeys = (part->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (!takesKeys || part->objectName().isEmpty())
            continue;
        const QString name = NameOf(*part);
        if (!name.isEmpty())
            parts.push_back(
                {name, FrameOf(*part), part->toolTip() + u' ' + part->property(KeysProperty).toString(), part});
    }
    return parts;
}

void NameSetting(QWidget& part, const char* keys)
{
    part.setProperty(KeysProperty, QString::fromLatin1(keys));
}
