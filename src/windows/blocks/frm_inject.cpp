#include "windows/blocks/frm_inject.h"

#include "conf/conf_lines.h"
#include "conf/edit_element.h"
#include "conf/help_for_word.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/place_at_mouse.h"
#include "windows/parts/rolling.h"
#include "windows/parts/word_list.h"

#include <QApplication>
#include <QCheckBox>
#include <QCursor>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>

namespace {

constexpr int MouseLeaveTick = 10;      ///< ms
constexpr QPoint BesideMouse{140, -30}; ///< of the window's centre, so that the mouse is over the lists

const QStringList& Commands()
{
    return Frame.WordLists.at(ModeGfx).at(KindGraphicComs);
}

/// Of a command that the block has; a green that stands out from either window.
QColor PresentColour(const QPalette& window)
{
    return window.color(QPalette::Window).lightness() < 128 ? QColor(0x58, 0xd8, 0x58) : QColor(0x00, 0x70, 0x00);
}

QStringList WithNone(QStringList words)
{
    words.removeAll(NoWords);
    return words << NoPart;
}

} // namespace

frmInject::frmInject(DocumentText& target, const InjectRequest& wanted, QWidget* parent)
    : QDialog(parent), pane(target), visit(target), request(wanted)
{
    setObjectName(QStringLiteral("frmInject"));
    SetHelpSubject(this, HelpIdFor("edit_element"));
    setWindowTitle(QStringLiteral("Edit Element"));
    auto* all = new QWidget(this);
    auto* column = new QVBoxLayout(all);
    column->addWidget(MakeLists(), 1);
    column->addWidget(MakeBoxes());
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    whole->addWidget(new Rolling(all, this));
    ShowBlock();
    MoveToMouse(*this, BesideMouse);
    loading = false;
    TellForeignLines();
    RebuildBlock();
}

QWidget* frmInject::MakeLists()
{
    auto* frame = new QGroupBox(this);
    frame->setObjectName(QStringLiteral("Frame1"));
    const KeyWords words = GraphicsKeyWords();
    element = new WordList(QStringLiteral("lstElement"), QStringLiteral("Element"), WithNone(words.Elements), frame);
    action = new WordList(QStringLiteral("lstAction"), QStringLiteral("Action"), WithNone(words.Actions), frame);
    direction = new WordList(QStringLiteral("lstDirection"), QStringLiteral("Direction"), words.Directions, frame);
    auto* row = new QHBoxLayout(frame);
    for (WordList* list : {element, action, direction}) {
        row->addWidget(list);
        connect(list, &WordList::Picked, this, [this] {
            RebuildBlock();
            // The mouse takes a word as from a palette: the keyboard does not stay in the list.
            if (QApplication::mouseButtons() != Qt::NoButton)
                setFocus();
        });
    }
    return frame;
}

QGroupBox* frmInject::MakeGroup(InjectGroup group, const char* title, int columns)
{
    auto* frame = new QGroupBox(QString::fromLatin1(title), this);
    auto* grid = new QGridLayout(frame);
    for (size_t command = 0; command < KnownCommands; ++command) {
        if (BlockCommands.at(command).Group != group)
            continue;
        auto* box = new QCheckBox(WithoutMnemonic(Commands().value(int(command))), frame);
        box->setObjectName(QStringLiteral("chkOption%1").arg(command));
        connect(box, &QCheckBox::toggled, this, &frmInject::RebuildBlock);
        const int place = grid->count();
        grid->addWidget(box, place / columns, place % columns);
        boxes.at(command) = box;
    }
    return frame;
}

QWidget* frmInject::MakeBoxes()
{
    auto* all = new QWidget(this);
    auto* grid = new QGridLayout(all);
    grid->setContentsMargins({});
    grid->addWidget(MakeGroup(InjectGroup::Common, "Common", 3), 0, 0);
    grid->addWidget(MakeGroup(InjectGroup::SubCommands, "Sub Commands", 1), 0, 1);
    grid->addWidget(MakeGroup(InjectGroup::Rare, "Rare", 3), 1, 0, 1, 2);
    return all;
}

/// The block's parts in the lists, its commands in the boxes.
void frmInject::ShowBlock()
{
    const InjectUse unfit = request.Crumbled ? InjectUse::NotCrumbled : InjectUse::OnlyCrumbled;
    for (size_t command = 0; command < KnownCommands; ++command) {
        QCheckBox* box = boxes.at(command);
        box->setEnabled(BlockCommands.at(command).Use != unfit);
        if (!request.Present.value(qsizetype(command)))
            continue;
        box->setChecked(true);
        QPalette colours = box->palette();
        colours.setColor(QPalette::WindowText, PresentColour(colours));
        box->setPalette(colours);
        QFont bold = box->font();
        bold.setBold(true);
        box->setFont(bold);
    }
    element->SetText(request.Block.Parts.Element);
    action->SetText(request.Block.Parts.Action);
    direction->SetText(request.Block.Parts.Direction);
}

void frmInject::TellForeignLines()
{
    const int foreign = ForeignLines(request.Block, Commands());
    if (foreign > 0)
        ShowNotice(QStringLiteral("%1 without a command taken out; Undo brings back all.")
                       .arg(foreign == 1 ? QStringLiteral("1 line") : QStringLiteral("%1 lines").arg(foreign)));
}

InjectAnswer frmInject::Answer() const
{
    InjectAnswer answer{{element->Word(), action->Word(), direction->Word()}, {}};
    for (const QCheckBox* box : boxes)
        answer.Wanted << box->isChecked();
    return answer;
}

void frmInject::RebuildBlock()
{
    if (loading)
        return;
    const InjectAnswer now = Answer();
    pane.SetSelText(::RebuildBlock(request.Block, now.Parts, now.Wanted, Commands(), CurrentValueColumn()));
}

void frmInject::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    setFocus();
    if (Frame.Settings.QuickClose == 1)
        startTimer(MouseLeaveTick);
}

/// The window closes when the mouse has been in it and has left it.
void frmInject::timerEvent(QTimerEvent* event)
{
    const bool here = frameGeometry().contains(QCursor::pos());
    if (mouseWasHere && !here) {
        killTimer(event->timerId());
        close();
    }
    mouseWasHere = mouseWasHere || here;
}

void frmInject::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QDialog::keyPressEvent(event);
}

void frmInject::done(int result)
{
    QDialog::done(result);
    if (!pane.UndoGroupOpen())
        return;
    pane.ExecuteCmd(CmdCharLeft);
    visit.Close();
}

InjectAnswer RunInjectWindow(DocumentText& pane, const InjectRequest& request, QWidget* parent)
{
    const ModalScope scope;
    frmInject window(pane, request, parent);
    window.exec();
    return window.Answer();
}

void EditElement()
{
    DocumentText& pane = CurrentPane();
    const UndoGroup visit(pane); // from here on: undo brings the caret back too
    const std::optional<InjectRequest> request = SelectBlockToEdit(pane);
    if (!request)
        return;
    RunInjectWindow(pane, *request, QApplication::activeWindow());
    Panes().FocusPane();
}
