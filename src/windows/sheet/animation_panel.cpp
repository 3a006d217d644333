#include "windows/sheet/animation_panel.h"

#include "conf/element_record.h"
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
}

void AnimationPanel::MakePlace()
{
    Frame2 = new QGroupBox(QStringLiteral("Tiles"), this);
    Frame2->setObjectName(QStringLiteral("Frame2"));
    auto* form = new QFormLayout(Frame2);
    const auto box = [this, form](const char* name, const char* label) {
        auto* made = new QLineEdit(Frame2);
        made->setObjectName(QString::fromLatin1(name));
        made->setReadOnly(true); // the marks on the sheet set it
        form->addRow(QString::fromLatin1(label), made);
        return made;
    };
    txtXpos = box("txtXpos", "Xpos");
    txtYpos = box("txtYpos", "Ypos");
    txtFrames = box("txtFrames", "Frames");
    txtStart = box("txtStart", "Start");
    txtCurrent = box("txtCurrent", "Current");
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
    cmbAnimMode = new QComboBox(Frame3);
    cmbAnimMode->setObjectName(QStringLiteral("cmbAnimMode"));
    cmbAnimMode->addItems(Frame.Settings.AnimModes);
    chkReverse = new QCheckBox(QStringLiteral("Reverse"), Frame3);
    chkReverse->setObjectName(QStringLiteral("chkReverse"));
    chkGlobalsync = new QCheckBox(QStringLiteral("Global Sync"), Frame3);
    chkGlobalsync->setObjectName(QStringLiteral("chkGlobalsync"));
    form->addRow(QStringLiteral("Delay"), delay);
    form->addRow(QStringLiteral("Anim Mode"), cmbAnimMode);
    form->addRow(QStringLiteral("Offset"), txtOffset);
    form->addRow(QStringLiteral("Name"), txtName);
    form->addRow(chkReverse);
    form->addRow(chkGlobalsync);
    setTabOrder(txtDelay, cmbAnimMode);
    setTabOrder(cmbAnimMode, txtOffset);
    setTabOrder(txtOffset, txtName);
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

void AnimationPanel::EnableFound()
{
    const std::pair<QWidget*, BlockField> controls[] = {
        {txtDelay, DelayField},           {cmdDelaySpin[0], DelayField}, {cmdDelaySpin[1], DelayField},
        {cmbAnimMode, AnimModeField},     {chkReverse, AnimModeField},   {txtStart, StartFrameField},
        {chkGlobalsync, GlobalSyncField}, {txtOffset, OffsetField},      {txtName, NameField},
    };
    for (const auto& [control, field] : controls)
        control->setEnabled(Conf.FieldFound[field]);
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
