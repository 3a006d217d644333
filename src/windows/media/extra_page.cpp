#include "windows/media/extra_page.h"

#include "frame/media/media_lists.h"
#include "platform/files/paths.h"
#include "windows/media/folder_tree.h"
#include "windows/media/media_style.h"
#include "windows/media/media_view.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QComboBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int ExtraPageEdge = 5; // pixels at 96 dpi

} // namespace

ExtraPage::ExtraPage(MediaView& files)
    : extraDrive(new QComboBox(this)),
      extraDir(new FolderTree(this)),
      extraFileList(files),
      cmdInjectPath(new QPushButton(QStringLiteral("<- Inject Path"), this))
{
    extraDrive->setObjectName(QStringLiteral("extraDrive"));
    extraDrive->setAccessibleName(QStringLiteral("Volumes"));
    extraDrive->setFocusPolicy(Qt::TabFocus);
    extraDrive->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    extraDrive->setMinimumContentsLength(4);
    extraDir->setObjectName(QStringLiteral("extraDir"));
    extraDir->setAccessibleName(QStringLiteral("Folders"));
    cmdInjectPath->setObjectName(QStringLiteral("cmdInjectPath"));
    cmdInjectPath->setFocusPolicy(Qt::TabFocus);
    cmdInjectPath->setToolTip(QStringLiteral("Write this folder into the first line, so that the file opens it again"));
    SetHelpSubject(cmdInjectPath, HelpIdFor("ml_extra_inject"));
    auto* column = new QVBoxLayout(this);
    const int edge = Pixels(*this, ExtraPageEdge);
    column->setContentsMargins(edge, edge, edge, edge);
    column->setSpacing(edge);
    column->addWidget(extraDrive);
    column->addWidget(extraDir);
    column->addWidget(&extraFileList, 1);
    column->addWidget(cmdInjectPath);
    connect(extraDrive, &QComboBox::activated, this, &ExtraPage::DrivePicked);
    connect(extraDir, &FolderTree::Picked, this, &ExtraPage::FolderPicked);
    connect(cmdInjectPath, &QPushButton::clicked, this, &ExtraPage::InjectWanted);
    FillDrives();
}

void ExtraPage::FillDrives()
{
    const QList<Volume> now = Volumes();
    if (now == volumes)
        return;
    volumes = now;
    const QString before = extraDrive->currentData().toString();
    extraDrive->clear();
    for (const Volume& volume : volumes)
        extraDrive->addItem(volume.Caption, volume.Folder);
    extraDrive->setCurrentIndex(qMax(0, extraDrive->findData(before)));
}

void ExtraPage::ShowFolder(const QString& folder)
{
    cmdInjectPath->setEnabled(!folder.isEmpty());
    if (folder.isEmpty() || folder == shown)
        return;
    shown = folder;
    int best = 0;
    for (int i = 0; i < extraDrive->count(); ++i)
        if (folder.startsWith(extraDrive->itemData(i).toString()) &&
            extraDrive->itemData(i).toString().size() > extraDrive->itemData(best).toString().size())
            best = i;
    extraDrive->setCurrentIndex(best);
    extraDir->ShowFolder(extraDrive->itemData(best).toString(), folder);
}

void ExtraPage::Refresh()
{
    FillDrives();
    extraDir->Refresh();
}

void ExtraPage::SetStyle()
{
    GiveMediaStyle(*extraDrive);
    GiveMediaStyle(*extraDir);
}

void ExtraPage::DrivePicked()
{
    SetExtraFolder(extraDrive->currentData().toString());
    emit DriveChosen();
}

void ExtraPage::FolderPicked(const QString& folder)
{
    shown = folder;
    SetExtraFolder(folder);
}

void ExtraPage::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    extraDir->setFixedHeight(height() / 4);
}
