#include "windows/options/option_page.h"

#include "frame/settings/settings.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QRubberBand>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int OutcomeShows = 4000; // ms
constexpr int MarkShows = 1500;    // ms
constexpr int Around = 24;         // pixels beside a part that is rolled into view
constexpr int MarkAround = 3;

/// One that is greyed does not take the keyboard, which would show where it is.
void MarkForAWhile(QWidget& part)
{
    auto* mark = new QRubberBand(QRubberBand::Rectangle, part.parentWidget());
    mark->setGeometry(part.geometry().adjusted(-MarkAround, -MarkAround, MarkAround, MarkAround));
    mark->show();
    QTimer::singleShot(MarkShows, mark, &QObject::deleteLater);
}

} // namespace

OptionPage::OptionPage(int index, const QString& shownTitle, QWidget* parent)
    : QWidget(parent), number(index), title(shownTitle), area(new QScrollArea(this)), outcome(new QLabel(this))
{
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // a part with the keyboard rolls into view
}

QPushButton* OptionPage::MakeButton(const char* name, const char* caption)
{
    auto* made = new QPushButton(QString::fromLatin1(caption), this);
    made->setObjectName(QString::fromLatin1(name) + QString::number(number));
    made->setAutoDefault(false);
    return made;
}

/// The buttons are made last: Tab comes to them behind the content.
void OptionPage::SetContent(QWidget* content)
{
    area->setWidget(content);
    content->setAutoFillBackground(false);
    area->viewport()->setAutoFillBackground(false);
    apply = MakeButton("cmblApply", "Apply");
    cancel = MakeButton("cmdCancel", "Close");
    connect(apply, &QPushButton::clicked, this, &OptionPage::ApplyAndTell);
    connect(cancel, &QPushButton::clicked, this, &OptionPage::CloseWanted);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(outcome, 1);
    buttons->addWidget(apply);
    buttons->addWidget(cancel);
    auto* column = new QVBoxLayout(this);
    column->addWidget(area, 1);
    column->addLayout(buttons);
}

std::vector<OptionPart> OptionPage::Parts() const
{
    return PartsOf(*area->widget());
}

void OptionPage::LeadTo(const OptionPart& part)
{
    if (part.BringUp)
        part.BringUp();
    part.Part->setFocus(Qt::TabFocusReason);
    area->ensureWidgetVisible(part.Part, Around, Around);
    if (!part.BringUp)
        MarkForAWhile(*part.Part);
}

void OptionPage::ApplyAndTell()
{
    {
        const SettingsBatch batch;
        Apply();
    }
    Tell(QStringLiteral("Applied."));
}

void OptionPage::Tell(const QString& words)
{
    outcome->setText(words);
    QTimer::singleShot(OutcomeShows, outcome, &QLabel::clear);
    QAccessibleEvent spoken(outcome, QAccessible::Alert);
    QAccessible::updateAccessibility(&spoken);
}
