#pragma once

#include "windows/media/volumes.h"

#include <QWidget>

class FolderTree;
class MediaView;
class QComboBox;
class QPushButton;

/// The page Extra: any folder of the machine, by a list of volumes and a tree, and its files.
class ExtraPage : public QWidget
{
    Q_OBJECT

public:
    explicit ExtraPage(MediaView& files);

    /// The tree and the volume follow; the folder ends with "/". "" leaves them where they are.
    void ShowFolder(const QString& folder);
    void Refresh(); ///< volumes and folders may have come and gone
    void SetStyle();

    QComboBox* Drives() const { return extraDrive; }
    FolderTree* Folders() const { return extraDir; }

signals:
    void DriveChosen(); ///< after the change
    void InjectWanted();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void FillDrives();
    void DrivePicked();
    void FolderPicked(const QString& folder);

    QComboBox* extraDrive;
    FolderTree* extraDir;
    MediaView& extraFileList;
    QPushButton* cmdInjectPath;
    QList<Volume> volumes;
    QString shown;
};
