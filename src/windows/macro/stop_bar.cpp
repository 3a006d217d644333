#include "windows/macro/stop_bar.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int MostPlacesShown = 5;
constexpr int LineRole = Qt::UserRole;

} // namespace

StopBar::StopBar(QWidget* parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("stopBar"));
    setFrameShape(QFrame::StyledPanel);
    lblStop = new QLabel(this);
    lblStop->setObjectName(QStringLiteral("lblStop"));
    lblStop->setTextFormat(Qt::PlainText);
    lblStop->setWordWrap(true);
    lstChain = new QListWidget(this);
    lstChain->setObjectName(QStringLiteral("lstChain"));
    lstChain->setAccessibleName(QStringLiteral("Gosubs that led here"));
    lstChain->setToolTip(QStringLiteral("The gosubs that led here; Enter or a double click shows the line"));
    buttons = new QWidget(this);
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins({});
    row->addStretch();
    auto* column = new QVBoxLayout(this);
    column->addWidget(lblStop);
    column->addWidget(buttons);
    column->addWidget(lstChain);
    connect(lstChain, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { emit PlaceWanted(item->data(LineRole).toInt()); });
    hide();
}

void StopBar::AddButton(QAction* action)
{
    auto* button = new QToolButton(buttons);
    button->setObjectName(QStringLiteral("cmd") + action->objectName().mid(3));
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setFocusPolicy(Qt::TabFocus);
    auto* row = static_cast<QHBoxLayout*>(buttons->layout());
    row->insertWidget(row->count() - 1, button);
}

void StopBar::ShowPlace(const std::vector<RunPlace>& chain, const QString& remark)
{
    const RunPlace& here = chain.back();
    lblStop->setText(QStringLiteral("Stopped in front of line %1: %2").arg(here.Line).arg(here.Written) +
                     (remark.isEmpty() ? QString() : u'\n' + remark));
    lstChain->clear();
    for (const RunPlace& place : chain) {
        auto* item = new QListWidgetItem(QStringLiteral("line %1: %2").arg(place.Line).arg(place.Written), lstChain);
        item->setData(LineRole, place.Line);
    }
    lstChain->setCurrentRow(lstChain->count() - 1);
    const int rows = qMin(lstChain->count(), MostPlacesShown);
    lstChain->setFixedHeight(rows * lstChain->sizeHintForRow(0) + 2 * lstChain->frameWidth());
    lstChain->setVisible(chain.size() > 1);
    show();
}
