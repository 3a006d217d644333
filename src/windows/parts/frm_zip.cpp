#include "windows/parts/frm_zip.h"

#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace {

constexpr int StartAfter = 50;                                    ///< ms, so that the window is painted before the work
constexpr int ZipImageSize = 32, ZipWidth = 280, BarSteps = 1000; ///< pixels of a 96-dpi screen; parts of the bar

} // namespace

frmZip::frmZip(Mode ofWork, const Work& toDo, QWidget* parent)
    : QDialog(parent), mode(ofWork), work(toDo), label(new QLabel(this)), bar(new QProgressBar(this))
{
    setObjectName(QStringLiteral("frmZip"));
    setWindowTitle(mode == Zip ? QStringLiteral("Zip") : QStringLiteral("Unzip"));
    SetHelpSubject(this, QStringLiteral("macros"));
    label->setObjectName(QStringLiteral("lblZip"));
    label->setText(mode == Zip ? QStringLiteral("Zipping files, please wait..........")
                               : QStringLiteral("Unzipping files, please wait.........."));
    auto* image = new QLabel(this);
    image->setObjectName(QStringLiteral("Image1"));
    image->setPixmap(CommandIcon(QStringLiteral("app")).pixmap(Pixels(*this, ZipImageSize)));
    bar->setRange(0, 0);
    bar->setTextVisible(false);
    bar->setMinimumWidth(Pixels(*this, ZipWidth));
    bar->setAccessibleName(QStringLiteral("Progress"));
    auto* column = new QVBoxLayout;
    column->addWidget(label);
    column->addWidget(bar);
    auto* row = new QHBoxLayout(this);
    row->setSizeConstraint(QLayout::SetFixedSize);
    row->addWidget(image, 0, Qt::AlignTop);
    row->addLayout(column);
    tmrStart.setSingleShot(true);
    connect(&tmrStart, &QTimer::timeout, this, &frmZip::Start);
    tmrStart.start(StartAfter);
}

void frmZip::Start()
{
    {
        RunScope scope(RunKind::Archive, windowTitle());
        working = true;
        outcome = work([this, &scope](int done, int of) {
            if (of > 0) {
                bar->setRange(0, BarSteps);
                bar->setValue(int(qint64(done) * BarSteps / of));
            }
            return scope.Turn();
        });
        working = false;
    }
    accept();
}

void frmZip::reject()
{
    // The window goes when the work has come to its end.
    if (working)
        StopRuns(StopReason::Esc);
    else if (tmrStart.isActive())
        outcome = Stopped();
    if (!working)
        QDialog::reject();
}

Result<> frmZip::Run(Mode mode, const Work& work, QWidget* parent)
{
    const ModalScope scope;
    frmZip window(mode, work, parent);
    window.exec();
    return window.outcome;
}
