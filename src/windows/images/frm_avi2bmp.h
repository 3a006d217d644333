#pragma once

#include "graphics/make_film_sheet.h"

#include <QDialog>
#include <array>

class FitChoice;
class PictureViewer;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class TilePlayer;
class ViewerTools;
class WorkStrip;

/// "AVI To BMP": a small film, or single pictures, as a sheet of tiles. The sheet is saved or goes to the Lab.
class frmAVI2BMP : public QDialog
{
    Q_OBJECT

public:
    /// Opens the window and returns when it, and a Lab that follows, is closed.
    static void Run(QWidget* owner);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit frmAVI2BMP(QWidget* owner);

    QWidget* MakeSide();
    QLayout* MakePreview();
    QWidget* MakeSheet();
    void Connect();
    void AskForFilm();
    void AskForPictures();
    void TakeDropped(const QStringList& files);
    void TakeFilm(const QString& path);
    void TakePictures(const QStringList& files);
    void ApplyTiles();
    void MarkTiles(bool waiting);
    bool HasSource() const;
    void ClearSheet();
    void RunAll(); ///< makes the sheet anew of what is chosen
    FilmReport ReadAll();
    void TellEnd(const FilmReport& report);
    void ShowSheet(const FilmReport& report);
    void SetPace(const films::Facts& facts);
    void Save();
    void SendToLab();

    QString film;         ///< path; empty with pictures
    QStringList pictures; ///< instead of a film
    QImage picBMP;        ///< the sheet
    bool paceIsFilms = false;
    bool toLab = false;

    QLineEdit *txtFile, *txtTiles, *txtWidth;
    QPushButton *cmdLoad, *cmdPictures;
    std::array<QPushButton*, 2> cmdSave;
    QCheckBox* chkDups;
    FitChoice* fit;
    TilePlayer* player;
    QSpinBox* spnDelay;
    QLabel *lblTile, *lblResult;
    PictureViewer* view;
    WorkStrip* strip;
};
