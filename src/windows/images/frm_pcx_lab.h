#pragma once

#include <QDialog>
#include <array>

class PictureViewer;
class WorkStrip;
class QCheckBox;
class QGroupBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

/// "PCX Lab": loads a picture of any kind, reduces it to a palette, and writes what the game reads.
class frmPCXLab : public QDialog
{
    Q_OBJECT

public:
    /// Opens the window and returns when it is closed. With `PcxLab.FromAVI` on it opens on the film's sheet.
    static void Run(QWidget* owner);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    explicit frmPCXLab(QWidget* owner);

    QWidget* MakeSide();
    void MakeConvert();
    QWidget* MakeViewers();
    void Connect();
    void AskForPicture();
    void Load(const QString& path);
    void TakeDropped(const QStringList& files);
    void ShowBoth();
    void ShowSaveButton();
    void Tell(const QString& lines);
    void Convert();
    void Save();
    void ConvertMany(const QStringList& files = {});

    QPushButton *cmdLoad, *cmdConvert, *cmdSave, *cmdMany;
    QPlainTextEdit* txtInfo;
    QGroupBox* frameConvert;
    std::array<QRadioButton*, 2> optQuant;
    QLineEdit* txtPalSize;
    QCheckBox *chkKeepBlack, *chkSeeThrough;
    std::array<PictureViewer*, 2> viewers;
    WorkStrip* strip;
    QString lastFolder;
    QString lastName; ///< of the picture on show
};
