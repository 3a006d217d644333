#include "windows/levels/frm_make_preview.h"

#include "frame/documents/documents.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "frame/run_scope.h"
#include "level/level_palette.h"
#include "level/palette_maker.h"
#include "platform/files/paths.h"
#include "windows/images/picture_viewer.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace {

constexpr QSize SheetRoomAt96(120, 120);
constexpr QSize PaletteFrameRoom(20, 40); // what a window manager puts around a window
constexpr qint64 ShowEvery = 50;          // ms

/// What stands in the way of a palette, in the order of the tests; nothing if all is there.
std::optional<message::Number> WhatIsMissing()
{
    if (!paths::FileExists(DefaultPalette()))
        return message::PaletteMissing;
    if (!paths::FileExists(Frame.DataFolder + QStringLiteral("mapele.ini")))
        return message::LevelElementsMissing;
    if (Frame.CurrentFile.isEmpty())
        return message::PaletteNeedsSave;
    return {};
}

QPushButton* PaletteButton(const char* name, const char* caption, QWidget* parent)
{
    auto* made = new QPushButton(QString::fromLatin1(caption), parent);
    made->setObjectName(QString::fromLatin1(name));
    return made;
}

} // namespace

void frmMakePreview::Run(QWidget* owner)
{
    frmMakePreview window(owner);
    const ModalScope modal;
    window.Open();
    window.exec();
}

frmMakePreview::frmMakePreview(QWidget* owner) : QDialog(DialogParent(owner))
{
    setObjectName(QStringLiteral("frmMakePreview"));
    SetHelpSubject(this, HelpIdFor("make_level_palette"));
    setWindowTitle(QStringLiteral("Make Preview Palette"));
    chkEditor = new QCheckBox(QStringLiteral("Use EDITOR info if available"), this);
    chkEditor->setObjectName(QStringLiteral("chkEditor"));
    cmdGO = PaletteButton("cmdGO", "Make", this);
    cmdGO->setDefault(true);
    cmdCancel = PaletteButton("cmdCancel", "Cancel", this);
    ProgRock = new QProgressBar(this);
    ProgRock->setObjectName(QStringLiteral("ProgRock"));
    ProgRock->setTextVisible(false);
    ProgRock->setAccessibleName(QStringLiteral("Progress"));
    picLoad = new QLabel(this);
    picLoad->setObjectName(QStringLiteral("picLoad"));
    picLoad->setAlignment(Qt::AlignCenter);
    picLoad->setAccessibleName(QStringLiteral("The sheet that is read"));
    picLoad->setFixedSize(Pixels(*this, SheetRoomAt96.width()), Pixels(*this, SheetRoomAt96.height()));
    lblResult = new QLabel(this);
    lblResult->setObjectName(QStringLiteral("lblResult"));
    lblResult->setTextFormat(Qt::PlainText);
    lblResult->setWordWrap(true);
    picMake = new PictureViewer(0, QStringLiteral("The palette"), this);
    picMake->setObjectName(QStringLiteral("picMake"));
    for (QWidget* part : std::initializer_list<QWidget*>{chkEditor, cmdGO, picMake})
        part->setEnabled(false);
    LayOut();
    connect(cmdGO, &QPushButton::clicked, this, [this] { Make(); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { reject(); });
}

void frmMakePreview::LayOut()
{
    auto* left = new QWidget(this);
    left->setFixedWidth(Pixels(*this, 240));
    auto* side = new QVBoxLayout(left);
    side->setContentsMargins({});
    side->addWidget(chkEditor);
    side->addWidget(picLoad, 0, Qt::AlignHCenter);
    side->addWidget(lblResult);
    side->addStretch();
    side->addWidget(ProgRock);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdGO);
    buttons->addWidget(cmdCancel);
    side->addLayout(buttons);
    auto* row = new QHBoxLayout(this);
    row->addWidget(left);
    row->addWidget(picMake, 1);
    const QRect whole = (parentWidget() ? parentWidget()->screen() : screen())->availableGeometry();
    resize(QSize(Pixels(*this, 720), Pixels(*this, 480)).boundedTo(whole.size() - PaletteFrameRoom));
}

void frmMakePreview::Open()
{
    if (const auto missing = WhatIsMissing()) {
        ShowMessage(*missing);
        return;
    }
    const Result<QImage> start = ReadPalette(DefaultPalette());
    if (!start) {
        ShowFailure(start.error());
        return;
    }
    picMake->ShowPicture(*start);
    for (QWidget* part : std::initializer_list<QWidget*>{chkEditor, cmdGO, picMake})
        part->setEnabled(true);
    lblResult->setText(QStringLiteral("Elements that %1 does not draw keep the classic look.").arg(Frame.CurrentFile));
}

void frmMakePreview::SetMaking(bool on)
{
    making = on;
    cmdGO->setEnabled(!on);
    chkEditor->setEnabled(!on);
    Busy().BusyPointer(on);
    if (on)
        return;
    ProgRock->reset();
    cmdGO->setFocus();
}

/// Reads the sheets of the lists and shows each.
std::function<Result<QImage>(const QString&)> frmMakePreview::ShownSheets(RunScope& run)
{
    const auto read = SheetsIn({Lists().Base.Folder(), Lists().Extra.Folder()}, Frame.Settings.SheetKinds,
                               [&run] { return run.Turn(); });
    return [this, read, shown = QString()](const QString& file) mutable {
        Result<QImage> sheet = read(file);
        if (sheet && shown != file)
            picLoad->setPixmap(QPixmap::fromImage(sheet->scaled(picLoad->size(), Qt::KeepAspectRatio)));
        shown = file;
        return sheet;
    };
}

void frmMakePreview::TakeLines(PaletteMaker& maker, RunScope& run)
{
    const QString text = QString::fromUtf8(CurrentPane().Bytes());
    const QList<QStringView> lines = QStringView(text).split(u'\n');
    ProgRock->setRange(0, int(lines.size()));
    QElapsedTimer sinceShown;
    sinceShown.start();
    for (qsizetype line = 0; line < lines.size() && run.Turn(); ++line) {
        maker.Line(lines.at(line));
        if (sinceShown.elapsed() < ShowEvery)
            continue;
        ProgRock->setValue(int(line + 1));
        picMake->ReplacePicture(maker.Palette());
        sinceShown.restart();
    }
    maker.End();
    picMake->ReplacePicture(maker.Palette());
}

void frmMakePreview::Make()
{
    const Result<QImage> start = ReadPalette(DefaultPalette());
    if (!start) {
        ShowFailure(start.error());
        return;
    }
    SetMaking(true);
    RunScope run(RunKind::Pass, windowTitle());
    PaletteMaker maker(*start, NamesOfElements(), Frame.Settings.SheetKinds, ShownSheets(run), chkEditor->isChecked());
    TakeLines(maker, run);
    SetMaking(false);
    if (run.Stopped())
        lblResult->setText(QStringLiteral("Stopped. Nothing was written."));
    else
        Save(maker.Palette(), qsizetype(maker.Drawn().size()));
}

void frmMakePreview::Save(const QImage& palette, qsizetype drawn)
{
    const QString path = PreviewsFolder() + PaletteNameOfSheets(Lists().Base.Folder()) + QStringLiteral(".gif");
    if (const Result<> written = WritePalette(path, palette); !written) {
        ShowFailure(written.error());
        return;
    }
    lblResult->setText(QStringLiteral("%1 elements are drawn by this set.\n\nWritten: %2")
                           .arg(drawn)
                           .arg(paths::FileNameOfPath(path)));
    lblResult->setToolTip(paths::Native(path));
}

void frmMakePreview::reject()
{
    if (making)
        StopRuns(StopReason::Esc);
    else
        QDialog::reject();
}
