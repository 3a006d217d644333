#include "windows/main/status_panels.h"

#include "windows/main/command_table.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QResizeEvent>
#include <algorithm>
#include <utility>

namespace {

struct PanelRow
{
    const char* Tag;
    const char* Tip;
    const char* Name; ///< told to screen readers in front of the text
    const char* Text; ///< at load
};
constexpr PanelRow PanelRows[] = {
    {"st_mode", "What mode you are in", "Mode", "Mode="},
    {"st_cursor", "Cursor and selection infomation", "Cursor", "X:0  Y:0  Lines:0  Selected:0"},
    {"st_path", "Current path of the open file", "Path", "Path="},
    {"st_insert", "Displays the state of the Insert Key", "Insert key", "INS"},
    {"st_caps", "Displays the state of the Caps Lock Key", "Caps Lock key", "CAPS"},
    {"st_num", "Displays the state of the Num Lock Key", "Num Lock key", "NUM"},
};
constexpr int CursorPanel = 2, PathPanel = 3, FirstKeyPanel = 4;
constexpr int LeastPath = 14; ///< characters
constexpr int NoticeMs = 6000, RepaintMs = 50;

} // namespace

StatusPanels::StatusPanels(QWidget* parent) : QStatusBar(parent), progress(new QProgressBar(this))
{
    setObjectName(QStringLiteral("StatusBar"));
    for (int panel = 1; panel <= int(panels.size()); ++panel) {
        const PanelRow& row = PanelRows[panel - 1];
        auto* frame = new QWidget(this);
        auto* line = new QHBoxLayout(frame);
        line->setContentsMargins(4, 0, 4, 0);
        line->setSpacing(4);
        panels[panel - 1] = {new QLabel(frame), new QLabel(QString::fromLatin1(row.Text), frame)};
        const auto& [picture, text] = panels[panel - 1];
        line->addWidget(picture);
        line->addWidget(text, 1);
        picture->hide();
        text->setTextFormat(Qt::PlainText);
        frame->setToolTip(QString::fromLatin1(row.Tip));
        SetHelpSubject(frame, HelpIdFor(row.Tag));
        if (panel < FirstKeyPanel)
            addWidget(frame, panel == PathPanel);
        else
            addPermanentWidget(frame);
    }
    // A long path must not widen the window; in a narrow one the mode, the keys and the path's end stay in sight.
    panels[PathPanel - 1].Text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    panels[PathPanel - 1].Text->setMinimumWidth(LeastPath * fontMetrics().averageCharWidth());
    panels[CursorPanel - 1].Text->setMinimumWidth(1);
    panels[PathPanel - 1].Text->installEventFilter(this);
    pathText = panels[PathPanel - 1].Text->text();
    progress->setAccessibleName(QStringLiteral("Progress"));
    progress->hide();
    noticeEnd.setSingleShot(true);
    paintLater.setSingleShot(true);
    connect(&paintLater, &QTimer::timeout, this, &StatusPanels::PaintProgress);
    connect(&noticeEnd, &QTimer::timeout, this, &StatusPanels::ShowPath);
}

void StatusPanels::SetPanel(int panel, const QString& text, int picture)
{
    const Panel& shown = panels.at(panel - 1);
    if (panel == PathPanel) {
        path = text;
        noticeEnd.stop();
    }
    if (panel == PathPanel)
        ShowPathText(unsaved ? QStringLiteral("Not saved: ") + text : text);
    else
        shown.Text->setText(text);
    shown.Text->setAccessibleName(QString::fromLatin1(PanelRows[panel - 1].Name) + QStringLiteral(": ") +
                                  text.simplified());
    const QIcon icon = picture > 0 ? ListImage(QStringLiteral("mode"), picture) : QIcon();
    shown.Picture->setPixmap(icon.pixmap(Pixels(*this, 16)));
    shown.Picture->setVisible(!icon.isNull());
}

/// Cut in the middle where it has no room: the file's name is what counts.
void StatusPanels::ShowPathText(const QString& text)
{
    QLabel* place = panels[PathPanel - 1].Text;
    pathText = text;
    place->setText(place->fontMetrics().elidedText(text, Qt::ElideMiddle, qMax(1, place->width())));
}

bool StatusPanels::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == panels[PathPanel - 1].Text)
        ShowPathText(pathText);
    constexpr QEvent::Type moves[] = {QEvent::Show, QEvent::Hide, QEvent::Move, QEvent::Resize};
    if (watched == live && std::find(std::begin(moves), std::end(moves), event->type()) != std::end(moves))
        FitProgress();
    return QStatusBar::eventFilter(watched, event);
}

QString StatusPanels::PanelText(int panel) const
{
    if (panel == PathPanel)
        return pathText;
    return panels.at(panel - 1).Text->text();
}

void StatusPanels::ShowKey(int panel, bool on)
{
    QLabel* text = panels.at(panel - 1).Text;
    text->setEnabled(on);
    text->setAccessibleName(QString::fromLatin1(PanelRows[panel - 1].Name) +
                            (on ? QStringLiteral(": on") : QStringLiteral(": off")));
}

void StatusPanels::ShowNotice(const QString& text)
{
    if (text.isEmpty()) {
        noticeEnd.stop();
        ShowPath();
        return;
    }
    QLabel* place = panels[PathPanel - 1].Text;
    ShowPathText(text);
    place->setAccessibleName(text);
    QAccessibleEvent told(place, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
    noticeEnd.start(NoticeMs);
}

void StatusPanels::SetUnsaved(bool now)
{
    if (std::exchange(unsaved, now) != now && !noticeEnd.isActive())
        ShowPath();
}

void StatusPanels::ShowPath()
{
    SetPanel(PathPanel, path, 0);
}

void StatusPanels::ShowProgress(int maximum, int value)
{
    if (progress->isHidden()) {
        FitProgress();
        progress->show();
        progress->raise();
        painted.invalidate();
    }
    // A range of 0 to 0 would be an endless "busy" bar.
    progress->setRange(0, qMax(maximum, 1));
    latest = value;
    if (painted.isValid() && painted.elapsed() < RepaintMs) {
        if (!paintLater.isActive()) // for who lets events run meanwhile
            paintLater.start(RepaintMs);
        return;
    }
    PaintProgress();
}

void StatusPanels::PaintProgress()
{
    paintLater.stop();
    progress->setValue(latest);
    progress->repaint();
    painted.start();
}

void StatusPanels::HideProgress()
{
    paintLater.stop();
    progress->hide();
    progress->reset();
}

void StatusPanels::AddLive(QWidget* widget)
{
    live = widget;
    live->installEventFilter(this);
    addPermanentWidget(widget);
}

void StatusPanels::FitProgress()
{
    const int lower = Pixels(*this, 2);
    const int end = live && live->isVisible() ? live->x() - Pixels(*this, 4) : width();
    progress->setGeometry(0, lower, end, height() - lower);
}

void StatusPanels::resizeEvent(QResizeEvent* event)
{
    QStatusBar::resizeEvent(event);
    FitProgress();
}
