#include "windows/blocks/frm_inject.h"

#include "conf/conf_lines.h"
#include "conf/element_record.h"
#include "conf/help_for_word.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/place_at_mouse.h"
#include "windows/parts/word_list.h"

#include <QCheckBox>
#include <QCursor>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QKeyEvent>

namespace {

constexpr int DirectionCount = 4, FirstCrumbledOff = 8, LastCrumbledOff = 17, BorderSize = 18;
constexpr int MouseLeaveTick = 10;      ///< ms
constexpr QPoint BesideMouse{140, -30}; ///< of the window's centre, so that the mouse is over the lists

const QStringList& Words(WordKind kind)
{
    return Frame.WordLists.at(ModeGfx).at(kind);
}

QStringList Directions()
{
    return Words(KindActions).mid(0, DirectionCount);
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

frmInject::frmInject(EditorPane& target, QWidget* parent)
    : QDialog(parent), pane(target), visit(target), block(ParseBlock(Panes().txtBuffer().Text(), Directions()))
{
    setObjectName(QStringLiteral("frmInject"));
    SetHelpSubject(this, HelpIdFor("edit_element"));
    setWindowTitle(QStringLiteral("Edit Element"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(MakeLists(), 1);
    column->addWidget(MakeBoxes());
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
    element =
        new WordList(QStringLiteral("lstElement"), QStringLiteral("Element"), WithNone(Words(KindElements)), frame);
    action = new WordList(QStringLiteral("lstAction"), QStringLiteral("Action"),
                          WithNone(Words(KindActions).mid(DirectionCount)), frame);
    direction = new WordList(QStringLiteral("lstDirection"), QStringLiteral("Direction"), Directions(), frame);
    auto* row = new QHBoxLayout(frame);
    for (WordList* list : {element, action, direction}) {
        row->addWidget(list);
        connect(list, &WordList::Picked, this, [this] {
            RebuildBlock();
            // The mouse takes a word as from a palette: the keyboard does not stay in the list.
            if (QGuiApplication::mouseButtons() != Qt::NoButton)
                setFocus();
        });
    }
    return frame;
}

QGroupBox* frmInject::MakeGroup(const QString& title, const QList<int>& commands, int columns)
{
    auto* group = new QGroupBox(title, this);
    auto* grid = new QGridLayout(group);
    for (qsizetype i = 0; i < commands.size(); ++i) {
        const int command = commands.at(i);
        auto* box = new QCheckBox(WithoutMnemonic(Words(KindGraphicComs).value(command)), group);
        box->setObjectName(QStringLiteral("chkOption%1").arg(command));
        connect(box, &QCheckBox::toggled, this, &frmInject::RebuildBlock);
        grid->addWidget(box, int(i) / columns, int(i) % columns);
        boxes.at(size_t(command)) = box;
    }
    return group;
}

QWidget* frmInject::MakeBoxes()
{
    auto* all = new QWidget(this);
    auto* grid = new QGridLayout(all);
    grid->setContentsMargins({});
    grid->addWidget(MakeGroup(QStringLiteral("Common"), {0, 1, 2, 3, 4, 5, 6, 7, 8}, 3), 0, 0);
    grid->addWidget(MakeGroup(QStringLiteral("Sub Commands"), {15, 16, 17}, 1), 0, 1);
    grid->addWidget(MakeGroup(QStringLiteral("Rare"), {9, 10, 11, 12, 13, 14, BorderSize}, 3), 1, 0, 1, 2);
    return all;
}

/// The block's parts in the lists, its commands in the boxes.
void frmInject::ShowBlock()
{
    chkOption(BorderSize)->setEnabled(Conf.CrumbledBlock);
    for (int command = FirstCrumbledOff; command <= LastCrumbledOff; ++command)
        chkOption(command)->setEnabled(!Conf.CrumbledBlock);
    for (int command = 0; command < InjectBoxes; ++command) {
        if (!Conf.CommandPresent.value(command))
            continue;
        QCheckBox* box = chkOption(command);
        box->setChecked(true);
        QPalette colours = box->palette();
        colours.setColor(QPalette::WindowText, PresentColour(colours));
        box->setPalette(colours);
        QFont bold = box->font();
        bold.setBold(true);
        box->setFont(bold);
    }
    element->SetText(block.Parts.Element);
    action->SetText(block.Parts.Action);
    direction->SetText(block.Parts.Direction);
}

void frmInject::TellForeignLines()
{
    const int foreign = ForeignLines(block, Words(KindGraphicComs));
    if (foreign > 0)
        ShowNotice(QStringLiteral("%1 without a command taken out; Undo brings back all.")
                       .arg(foreign == 1 ? QStringLiteral("1 line") : QStringLiteral("%1 lines").arg(foreign)));
}

void frmInject::RebuildBlock()
{
    if (loading)
        return;
    QList<bool> wanted;
    for (const QCheckBox* box : boxes)
        wanted << box->isChecked();
    const KeyParts parts{element->Text(), action->Text(), direction->Text()};
    pane.SetSelText(::RebuildBlock(block, parts, wanted, Words(KindGraphicComs), CurrentValueColumn()));
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

void RunInjectWindow(QWidget* parent)
{
    const ModalScope scope;
    frmInject(CurrentPane(), parent).exec();
}
