#pragma once

#include "platform/result.h"

#include <QDialog>
#include <QImage>
#include <functional>

class PaletteMaker;
class PictureViewer;
class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;
class RunScope;

/// "Make Preview Palette": a level palette from the graphics conf in the current pane and the sheets that it names.
class frmMakePreview : public QDialog
{
    Q_OBJECT

public:
    static void Run(QWidget* owner);

protected:
    void reject() override;

private:
    explicit frmMakePreview(QWidget* owner);

    void LayOut();
    void Open(); ///< the tests in front of the work; on success the window is ready for it
    void Make();
    void SetMaking(bool on);
    std::function<Result<QImage>(const QString&)> ShownSheets(RunScope& run);
    void TakeLines(PaletteMaker& maker, RunScope& run);
    void Save(const QImage& palette, qsizetype drawn);

    QCheckBox* chkEditor;
    QPushButton *cmdGO, *cmdCancel;
    QProgressBar* ProgRock;
    QLabel *picLoad, *lblResult;
    PictureViewer* picMake;
    bool making = false;
};
