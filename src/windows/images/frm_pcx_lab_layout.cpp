#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "graphics/picture_lab.h"
#include "windows/images/frm_pcx_lab.h"
#include "windows/images/picture_viewer.h"
#include "windows/images/viewer_tools.h"
#include "windows/images/work_strip.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

// The parts of the Lab's window and where they stand.

namespace {

constexpr int SideWidth = 280;        // pixels at 96 dpi
constexpr QSize LabFrameRoom{20, 40}; // what a window manager puts around a window

QPushButton* LabButton(const char* name, const QString& caption, QWidget* parent)
{
    auto* made = new QPushButton(caption, parent);
    made->setObjectName(QString::fromLatin1(name));
    made->setAutoDefault(false); // Enter belongs to the boxes
    return made;
}

QCheckBox* LabCheck(const char* name, const char* caption, const char* tip, QWidget* parent)
{
    auto* made = new QCheckBox(QString::fromLatin1(caption), parent);
    made->setObjectName(QString::fromLatin1(name));
    made->setToolTip(QString::fromLatin1(tip));
    made->setChecked(true);
    return made;
}

} // namespace

frmPCXLab::frmPCXLab(QWidget* owner) : QDialog(DialogParent(owner)), lastFolder(Lists().Base.Folder())
{
    setObjectName(QStringLiteral("frmPCXLab"));
    SetHelpSubject(this, HelpIdFor("pcx_lab"));
    setWindowTitle(QStringLiteral("PCX Lab"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setAcceptDrops(true);
    QWidget* side = MakeSide();
    auto* row = new QHBoxLayout(this);
    row->addWidget(side);
    row->addWidget(MakeViewers(), 1);
    Connect();
    frameConvert->hide();
    chkSeeThrough->hide();
    cmdLoad->setFocus();
    const QRect whole = (parentWidget() ? parentWidget()->screen() : screen())->availableGeometry();
    resize(sizeHint().boundedTo(whole.size() - LabFrameRoom));
    if (PcxLab.FromAVI)
        QTimer::singleShot(0, this, [this] { Load(PcxLab.AviBitmap); });
}

QWidget* frmPCXLab::MakeSide()
{
    auto* side = new QWidget(this);
    side->setFixedWidth(Pixels(*this, SideWidth));
    cmdLoad = LabButton("cmdLoad", QStringLiteral("Load Any Image"), side);
    txtInfo = new QPlainTextEdit(side);
    txtInfo->setObjectName(QStringLiteral("txtInfo"));
    txtInfo->setAccessibleName(QStringLiteral("What was loaded"));
    txtInfo->setReadOnly(true);
    txtInfo->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // one that comes breaks lines anew, out of sight
    txtInfo->setTabChangesFocus(true);
    txtInfo->setAcceptDrops(false); // the window takes them
    txtInfo->setPlaceholderText(QStringLiteral("Drop pictures here"));
    chkSeeThrough = LabCheck("chkSeeThrough", "See-through becomes black",
                             "Black is see-through in the game; off: the colour that stands behind", side);
    MakeConvert(); // in the order in which the keyboard goes through them
    cmdSave = LabButton("cmdSave", SaveCaption(PcxLab.SaveTag), side);
    cmdSave->setEnabled(false);
    cmdMany = LabButton("cmdMany", QStringLiteral("Convert Many Pictures..."), side);
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins({});
    column->addWidget(cmdLoad);
    column->addWidget(txtInfo, 1);
    column->addWidget(chkSeeThrough);
    column->addWidget(frameConvert);
    column->addWidget(cmdSave);
    column->addSpacing(Pixels(*this, 12));
    column->addWidget(cmdMany);
    return side;
}

void frmPCXLab::MakeConvert()
{
    frameConvert = new QGroupBox(QStringLiteral("Convert to 256 Colours (8 Bit)"), this);
    frameConvert->setObjectName(QStringLiteral("frameConvert"));
    auto* quant = new QGroupBox(QStringLiteral("Colour Reduction Algorithm"), frameConvert);
    auto* methods = new QVBoxLayout(quant);
    const char* const captions[] = {"Xiaolin Wu", "NeuQuant neural-net"};
    for (size_t i = 0; i < optQuant.size(); ++i) {
        optQuant[i] = new QRadioButton(QString::fromLatin1(captions[i]), quant);
        optQuant[i]->setObjectName(QStringLiteral("optQuant%1").arg(i));
        methods->addWidget(optQuant[i]);
    }
    optQuant[0]->setChecked(true);
    txtPalSize = new QLineEdit(QStringLiteral("256"), frameConvert);
    txtPalSize->setObjectName(QStringLiteral("txtPalSize"));
    txtPalSize->setToolTip(QStringLiteral("2 to 256"));
    txtPalSize->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d*")), txtPalSize));
    chkKeepBlack =
        LabCheck("chkKeepBlack", "Keep black apart",
                 "What is black stays black, see-through in the game, and nothing else becomes it", frameConvert);
    cmdConvert = LabButton("cmdConvert", QStringLiteral("Convert"), frameConvert);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Palette Size"), txtPalSize);
    auto* column = new QVBoxLayout(frameConvert);
    column->addWidget(quant);
    column->addLayout(form);
    column->addWidget(chkKeepBlack);
    column->addWidget(cmdConvert);
}

QWidget* frmPCXLab::MakeViewers()
{
    auto* part = new QWidget(this);
    const QString captions[] = {QStringLiteral("Before"), QStringLiteral("After")};
    auto* pair = new QHBoxLayout;
    for (int i = 0; i < 2; ++i)
        viewers[size_t(i)] = new PictureViewer(i, captions[i], part);
    auto* tools = new ViewerTools(QStringLiteral("PCX Lab"), {viewers[0], viewers[1]}, part);
    strip = new WorkStrip(this);
    auto* above = new QHBoxLayout;
    above->addWidget(tools);
    above->addWidget(strip, 1);
    for (int i = 0; i < 2; ++i) {
        auto* column = new QVBoxLayout;
        column->addWidget(new QLabel(captions[i], part));
        column->addWidget(viewers[size_t(i)], 1);
        pair->addLayout(column, 1);
    }
    auto* all = new QVBoxLayout(part);
    all->setContentsMargins({});
    all->addLayout(above);
    all->addLayout(pair, 1);
    return part;
}

void frmPCXLab::Connect()
{
    connect(cmdLoad, &QPushButton::clicked, this, &frmPCXLab::AskForPicture);
    connect(cmdConvert, &QPushButton::clicked, this, &frmPCXLab::Convert);
    connect(txtPalSize, &QLineEdit::returnPressed, this, &frmPCXLab::Convert);
    connect(cmdSave, &QPushButton::clicked, this, &frmPCXLab::Save);
    connect(cmdMany, &QPushButton::clicked, this, [this] { ConvertMany(); });
    connect(chkSeeThrough, &QCheckBox::toggled, this, [this](bool on) {
        SetSeeThroughBlack(on);
        ShowBoth();
        ShowSaveButton();
    });
}
