#include "windows/about/frm_about.h"

#include "frame/documents/documents.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QFile>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QPushButton>
#include <QShowEvent>

// Needs to stand outside of any namespace: the macro names a global routine.
static void RegisterAbout()
{
    Q_INIT_RESOURCE(about);
}

namespace {

constexpr int TickMs = 30, FlashMs = 450;
// In pixels of a 96-dpi screen.
constexpr QRect Window{0, 0, 540, 350}, Stage{16, 16, 330, 280}, Person{364, 96, 160, 160}, Stone{76, 40, 180, 180};
constexpr int FirstLine = 230; ///< top of the text's box in its stage
constexpr QColor Night(24, 28, 44), Dusk(58, 50, 92), Pale(226, 232, 246);

QByteArray Resource(const char* name)
{
    RegisterAbout();
    QFile file(QStringLiteral(":/custom/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QRect Scaled(const QWidget& widget, const QRect& at96)
{
    return {Pixels(widget, at96.x()), Pixels(widget, at96.y()), Pixels(widget, at96.width()),
            Pixels(widget, at96.height())};
}

QLabel* MakePicture(QWidget* parent, const char* control, const char* icon, const QRect& place)
{
    auto* picture = new QLabel(parent);
    picture->setObjectName(QLatin1String(control));
    picture->setGeometry(Scaled(*parent, place));
    picture->setPixmap(CommandIcon(QLatin1String(icon)).pixmap(picture->size(), parent->devicePixelRatio()));
    picture->hide();
    return picture;
}

/// Line `n` of the text stands at n times the line height, whatever the font.
QString Lines(const QString& typed, int lineHeight)
{
    return QStringLiteral("<p style=\"margin:0; white-space:pre; line-height:%1px\">%2</p>")
        .arg(lineHeight)
        .arg(typed.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
}

} // namespace

frmAbout::frmAbout(TunePlayer player, QWidget* owner)
    : QDialog(DialogParent(owner)),
      tune(std::move(player)),
      script(QString::fromUtf8(Resource("ABOUT"))),
      stage(new QWidget(this))
{
    setObjectName(QStringLiteral("frmAbout"));
    SetHelpSubject(this, QStringLiteral("H_main_about"));
    setWindowTitle(QStringLiteral("About Gemforge"));
    setFixedSize(Scaled(*this, Window).size());
    MakeParts(QString::fromUtf8(Resource("ABOUT")));
    connect(&tmrMain, &QTimer::timeout, this, &frmAbout::Tick);
    connect(&tmrErrFlash, &QTimer::timeout, this, [this] { picError->setVisible(!picError->isVisible()); });
    tmrMain.setInterval(TickMs);
    tmrErrFlash.setInterval(FlashMs);
    ShowState();
}

frmAbout::~frmAbout()
{
    tune.Stop();
}

void frmAbout::MakeParts(const QString& text)
{
    stage->setGeometry(Scaled(*this, Stage));
    Text1 = new QLabel(stage);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setTextFormat(Qt::RichText);
    Text1->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QPalette colours = Text1->palette();
    colours.setColor(QPalette::WindowText, Pale);
    Text1->setPalette(colours);
    QFont letters = font();
    letters.setPixelSize(Pixels(*this, 14));
    Text1->setFont(letters);
    // Who does not see it type itself hears it whole.
    stage->setAccessibleName(windowTitle());
    setAccessibleDescription(QString(text).remove(u'>').remove(u'#').simplified());
    picme = MakePicture(this, "picme", "about_smith", Person);
    picemail = MakePicture(this, "picemail", "about_letter", Person);
    picError = MakePicture(stage, "picError", "about_broken", Stone);
    auto* close = new QPushButton(QStringLiteral("Close"), this);
    close->setDefault(true);
    const QSize size = close->sizeHint();
    close->setGeometry(QRect(QPoint(width() - size.width(), height() - size.height()) - QPoint(16, 14), size));
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

void frmAbout::Run(TunePlayer player, QWidget* owner)
{
    const ModalScope modal;
    frmAbout(std::move(player), owner).exec();
}

void frmAbout::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (event->spontaneous() || tmrMain.isActive() || script.Broken())
        return;
    StopPreview();
    tune.Play(Resource("TOON"));
    tmrMain.start();
}

void frmAbout::Tick()
{
    script.Tick();
    ShowState();
    if (script.Broken() && !tmrErrFlash.isActive())
        Break();
    if (script.Done())
        tmrMain.stop();
}

void frmAbout::Break()
{
    Text1->hide();
    picError->show();
    tmrErrFlash.start();
    tune.Stop();
}

void frmAbout::ShowState()
{
    const QString typed = Lines(script.Typed(), Pixels(*this, AboutScript::LineHeight));
    if (Text1->text() != typed)
        Text1->setText(typed);
    const double scale = logicalDpiY() / 96.0;
    Text1->setGeometry(0, qRound((FirstLine + script.Top()) * scale), stage->width(), qRound(script.Height() * scale));
    const QRect person = Scaled(*this, Person);
    const int beside = qRound((1 - script.SmithShare()) * (width() - person.left()));
    picme->move(person.left() + beside, person.top());
    picme->setVisible(script.SmithShare() > 0);
    picemail->setVisible(script.LetterShows());
}

void frmAbout::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QLinearGradient ground(rect().topLeft(), rect().bottomRight());
    ground.setColorAt(0, Night);
    ground.setColorAt(1, Dusk);
    painter.fillRect(rect(), ground);
}
