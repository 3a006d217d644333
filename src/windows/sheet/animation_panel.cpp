#include "windows/sheet/animation_panel.h"

#include "conf/block_commands.h"
#include "frame/frame_state.h"
#include "graphics/animation.h"
#include "windows/sheet/apply_field.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int WholeTile = 32; // pixels: the game's own offset

QString NumberTaken(const QString& text)
{
    constexpr int longest = 7;
    if (text.size() > longest)
        return QStringLiteral("1");
    return text.isEmpty() ? QStringLiteral("0") : text;
}

/// Steps the delay the moment a mouse button goes down, by its own width of step.
class DelayButton : public QToolButton
{
public:
    DelayButton(const char* name, Qt::ArrowType arrow, std::function<void(int)> stepBy, QWidget* parent)
        : QToolButton(parent), step(std::move(stepBy))
    {
        setObjectName(QString::fromLatin1(name));
        setArrowType(arrow);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        switch (event->button()) {
        case Qt::LeftButton:
            step(1);
            break;
        case Qt::RightButton:
            step(10);
            break;
        case Qt::MiddleButton:
            step(5);
            break;
        default:
            break;
        }
    }

private:
    std::function<void(int)> step;
};

} // namespace

AnimationPanel::AnimationPanel(QWidget* parent) : QWidget(parent)
{
    MakePlace();
    MakePlay();
    ConnectPlay();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(Frame2);
    column->addWidget(Frame3);
    column->addStretch();
}

void AnimationPanel::MakePlace()
{
    Frame2 = new QGroupBox(QStringLiteral("Tiles"), this);
    Frame2->setObjectName(QStringLiteral("Frame2"));
    auto* form = new QFormLayout(Frame2);
    const auto box = [this](const char* name) {
        auto* made = new QLineEdit(Frame2);
        made->setObjectName(QString::fromLatin1(name));
        made->setReadOnly(true); // the marks on the sheet set it
        return made;
    };
    txtXpos = box("txtXpos");
    txtYpos = box("txtYpos");
    txtFrames = box("txtFrames");
    txtStart = box("txtStart");
    txtCurrent = box("txtCurrent");
    form->addRow(QStringLiteral("Xpos"), txtXpos);
    form->addRow(QStringLiteral("Ypos"), txtYpos);
    form->addRow(QStringLiteral("Frames"), WithAdd(txtFrames, FramesField, "Frames"));
    form->addRow(QStringLiteral("Start"), WithAdd(txtStart, StartFrameField, "Start"));
    form->addRow(QStringLiteral("Current"), txtCurrent);
    QWidget* const order[] = {txtFrames, cmdAdd[FramesField], txtStart, cmdAdd[StartFrameField], txtCurrent};
    for (size_t at = 1; at < std::size(order); ++at)
        setTabOrder(order[at - 1], order[at]);
}

void AnimationPanel::MakePlay()
{
    Frame3 = new QGroupBox(QStringLiteral("Animation"), this);
    Frame3->setObjectName(QStringLiteral("Frame3"));
    auto* form = new QFormLayout(Frame3);
    const auto field = [this](const char* name, ApplyField::Takes takes) {
        auto* made = new ApplyField(takes, Frame3);
        made->setObjectName(QString::fromLatin1(name));
        return made;
    };
    txtDelay = field("txtDelay", ApplyField::Takes::Digits);
    txtOffset = field("txtOffset", ApplyField::Takes::Digits);
    txtName = field("txtName", ApplyField::Takes::Text);
    const QString steps = QStringLiteral("left button by 1, middle by 5, right by 10");
    cmdDelaySpin[0] = new DelayButton(
        "cmdDelaySpin0", Qt::UpArrow, [this](int step) { SpinDelay(step); }, Frame3);
    cmdDelaySpin[1] = new DelayButton(
        "cmdDelaySpin1", Qt::DownArrow, [this](int step) { SpinDelay(-step); }, Frame3);
    cmdDelaySpin[0]->setToolTip(QStringLiteral("Slower: ") + steps);
    cmdDelaySpin[1]->setToolTip(QStringLiteral("Faster: ") + steps);
    auto* delay = new QHBoxLayout;
    delay->setSpacing(1);
    delay->addWidget(txtDelay, 1);
    delay->addWidget(cmdDelaySpin[0]);
    delay->addWidget(cmdDelaySpin[1]);
    delay->addWidget(AddButton(txtDelay, DelayField, "Delay"));
    cmbAnimMode = new QComboBox(Frame3);
    cmbAnimMode->setObjectName(QStringLiteral("cmbAnimMode"));
    cmbAnimMode->addItems(Frame.Settings.AnimModes);
    chkReverse = new QCheckBox(QStringLiteral("Reverse"), Frame3);
    chkReverse->setObjectName(QStringLiteral("chkReverse"));
    chkGlobalsync = new QCheckBox(QStringLiteral("Global Sync"), Frame3);
    chkGlobalsync->setObjectName(QStringLiteral("chkGlobalsync"));
    form->addRow(QStringLiteral("Delay"), delay);
    form->addRow(QStringLiteral("Anim Mode"), WithAdd(cmbAnimMode, AnimModeField, "AnimMode"));
    form->addRow(QStringLiteral("Offset"), WithAdd(txtOffset, OffsetField, "Offset"));
    form->addRow(QStringLiteral("Name"), WithAdd(txtName, NameField, "Name"));
    form->addRow(chkReverse);
    form->addRow(WithAdd(chkGlobalsync, GlobalSyncField, "GlobalSync"));
    QWidget* const order[] = {txtDelay,
                              cmdAdd[DelayField],
                              cmbAnimMode,
                              cmdAdd[AnimModeField],
                              txtOffset,
                              cmdAdd[OffsetField],
                              txtName,
                              cmdAdd[NameField],
                              chkReverse,
                              chkGlobalsync,
                              cmdAdd[GlobalSyncField]};
    for (size_t place = 1; place < std::size(order); ++place)
        setTabOrder(order[place - 1], order[place]);
}

QToolButton* AnimationPanel::AddButton(QWidget* box, BlockField field, const char* what)
{
    auto* made = new QToolButton(this);
    made->setObjectName(QStringLiteral("cmdAdd") + QLatin1String(what));
    made->setText(QStringLiteral("+"));
    made->setCheckable(true);
    made->setToolTip(QStringLiteral("Adds the line .%1 at Update").arg(QLatin1String(BlockCommands.at(field).Word)));
    made->setAccessibleName(made->toolTip());
    made->hide();
    connect(made, &QToolButton::toggled, this, [this, field](bool on) { Add(field, on); });
    connect(made, &QToolButton::clicked, box, [box](bool on) {
        if (on)
            box->setFocus(Qt::TabFocusReason); // its value is typed next
    });
    cmdAdd.at(field) = made;
    return made;
}

QHBoxLayout* AnimationPanel::WithAdd(QWidget* box, BlockField field, const char* what)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(1);
    row->addWidget(box, 1);
    row->addWidget(AddButton(box, field, what));
    return row;
}

void AnimationPanel::Add(BlockField field, bool on)
{
    EnableField(field, on);
    if (on && field == OffsetField && Conf.Element.Offset == 0) {
        Conf.Element.Offset = WholeTile; // 0 would show the first frame for ever
        txtOffset->Show(QString::number(WholeTile));
    }
}

void AnimationPanel::ConnectPlay()
{
    connect(txtDelay, &ApplyField::Applied, this, &AnimationPanel::ApplyDelay);
    connect(txtOffset, &ApplyField::Applied, this, [this](const QString& text) {
        const QString taken = NumberTaken(text);
        txtOffset->Show(taken);
        Conf.Element.Offset = taken.toInt();
    });
    connect(txtName, &ApplyField::Applied, this, [](const QString& text) { Conf.Element.ElementName = text; });
    connect(chkReverse, &QCheckBox::toggled, this, [this](bool on) {
        Conf.Element.Reverse = on;
        Animation.PlayDirection = on ? -1 : 1;
        emit RestartWanted();
    });
    connect(chkGlobalsync, &QCheckBox::toggled, this, [](bool on) { Conf.Element.GlobalSync = on; });
    connect(cmbAnimMode, &QComboBox::textActivated, this, [this](const QString& mode) {
        Conf.Element.AnimMode = mode;
        Conf.UnknownMode.reset();
        emit RestartWanted();
    });
}

void AnimationPanel::ApplyDelay(const QString& text)
{
    const QString taken = NumberTaken(text);
    Conf.Element.Delay = taken.toInt();
    emit StartWanted();
    txtDelay->Show(taken);
}

void AnimationPanel::SpinDelay(int step)
{
    Conf.Element.Delay = qMax(1, Conf.Element.Delay + step);
    txtDelay->Show(QString::number(Conf.Element.Delay));
    txtDelay->setFocus();
    emit StartWanted();
}

void AnimationPanel::ShowRecord()
{
    const ElementRecord& element = Conf.Element;
    ShowPlace();
    if (cmbAnimMode->findText(element.AnimMode) < 0)
        cmbAnimMode->addItem(element.AnimMode); // two of the game's words, such as "linear,once"
    cmbAnimMode->setCurrentText(element.AnimMode);
    txtDelay->Show(QString::number(element.Delay));
    txtOffset->Show(QString::number(element.Offset));
    txtName->Show(element.ElementName);
    chkGlobalsync->setChecked(element.GlobalSync == 1);
    chkReverse->setChecked(element.Reverse);
    Animation.PlayDirection = element.Reverse ? -1 : 1;
}

void AnimationPanel::ShowPlace()
{
    const ElementRecord& element = Conf.Element;
    txtXpos->setText(QString::number(element.XPos));
    txtYpos->setText(QString::number(element.YPos));
    txtFrames->setText(QString::number(element.Frames));
    txtStart->setText(element.StartFrame == -1 ? QStringLiteral("None") : QString::number(element.StartFrame));
}

void AnimationPanel::ShowCurrent(int tile)
{
    txtCurrent->setText(QString::number(tile));
}

void AnimationPanel::EnableField(BlockField wanted, bool on)
{
    const std::pair<QWidget*, BlockField> controls[] = {
        {txtDelay, DelayField},           {cmdDelaySpin[0], DelayField}, {cmdDelaySpin[1], DelayField},
        {cmbAnimMode, AnimModeField},     {chkReverse, AnimModeField},   {txtStart, StartFrameField},
        {chkGlobalsync, GlobalSyncField}, {txtOffset, OffsetField},      {txtName, NameField},
    };
    for (const auto& [control, field] : controls)
        if (field == wanted)
            control->setEnabled(on);
}

void AnimationPanel::EnableFound(bool mayAdd)
{
    for (size_t field = FramesField; field < RecordFields; ++field) {
        const bool found = Conf.FieldFound.at(field);
        EnableField(BlockField(field), found);
        cmdAdd.at(field)->setVisible(mayAdd && !found);
    }
}

FieldFlags AnimationPanel::Added() const
{
    FieldFlags added{};
    for (size_t field = FramesField; field < RecordFields; ++field)
        added.at(field) = cmdAdd.at(field)->isChecked();
    return added;
}

void AnimationPanel::EnablePlace(bool on)
{
    Frame2->setEnabled(on);
}

void AnimationPanel::EnableAll(bool on)
{
    Frame2->setEnabled(on);
    Frame3->setEnabled(on);
}

void AnimationPanel::FocusFirst()
{
    txtXpos->setFocus();
}
