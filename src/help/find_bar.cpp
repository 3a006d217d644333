#include "help/find_bar.h"

#include "help/page_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

FindBar::FindBar(PageView& page, QWidget* parent)
    : QWidget(parent), view(page), box(new QLineEdit(this)), answer(new QLabel(this))
{
    auto* label = new QLabel(tr("&Find on this page:"), this);
    label->setBuddy(box);
    auto* next = new QPushButton(tr("&Next"), this);
    auto* previous = new QPushButton(tr("Pre&vious"), this);
    auto* close = new QPushButton(tr("&Close"), this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 4, 6, 4);
    row->addWidget(label);
    row->addWidget(box, 1);
    for (QPushButton* button : {next, previous})
        row->addWidget(button);
    row->addWidget(answer, 1);
    row->addWidget(close);

    connect(box, &QLineEdit::textChanged, this, [this] { Look(false, true); });
    connect(box, &QLineEdit::returnPressed, this, [this] { Look(false, false); });
    connect(next, &QPushButton::clicked, this, [this] { Look(false, false); });
    connect(previous, &QPushButton::clicked, this, [this] { Look(true, false); });
    connect(close, &QPushButton::clicked, this, [this] { CloseIfOpen(); });
    hide();
}

void FindBar::Open()
{
    show();
    box->setFocus(Qt::ShortcutFocusReason);
    box->selectAll();
}

bool FindBar::CloseIfOpen()
{
    if (!isVisible())
        return false;
    hide();
    view.setFocus(Qt::OtherFocusReason);
    return true;
}

void FindBar::Step(bool back)
{
    if (box->text().isEmpty())
        Open();
    else
        Look(back, false);
}

void FindBar::Look(bool back, bool fromHere)
{
    const QString text = box->text();
    answer->setText(text.isEmpty() || view.Find(text, back, fromHere) ? QString() : tr("Not on this page."));
}
