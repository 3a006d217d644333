#include "windows/options/option_page.h"

#include "frame/settings/settings.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int OutcomeShows = 4000; // ms
constexpr int Around = 24;         // pixels beside a part that is rolled into view

} // namespace

OptionPage::OptionPage(int index, const QString& shownTitle, QWidget* parent)
    : QWidget(parent), title(shownTitle), area(new QScrollArea(this)), outcome(new QLabel(this))
{
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    const auto button = [this, index](const char* name, const char* caption) {
        auto* made = new QPushButton(QString::fromLatin1(caption), this);
        made->setObjectName(QString::fromLatin1(name) + QString::number(index));
        made->setAutoDefault(false);
        return made;
    };
    apply = button("cmblApply", "Apply");
    cancel = button("cmdCancel", "Close");
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

void OptionPage::SetContent(QWidget* content)
{
    area->setWidget(content);
    content->setAutoFillBackground(false);
    area->viewport()->setAutoFillBackground(false);
}

void OptionPage::ShowPart(QWidget* part)
{
    area->ensureWidgetVisible(part, Around, Around);
}

void OptionPage::ApplyAndTell()
{
    {
        const SettingsBatch batch;
        Apply();
    }
    outcome->setText(QStringLiteral("Applied."));
    QTimer::singleShot(OutcomeShows, outcome, &QLabel::clear);
    QAccessibleEvent spoken(outcome, QAccessible::Alert);
    QAccessible::updateAccessibility(&spoken);
}
