#pragma once

#include <QWidget>

class ApplyField;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QToolButton;

/// The boxes beside the sheet: where the animation lies on it, and how it plays. They show and change the block in
/// work.
class AnimationPanel : public QWidget
{
    Q_OBJECT

public:
    explicit AnimationPanel(QWidget* parent = nullptr);

    void ShowRecord();          ///< every box from the block
    void ShowPlace();           ///< the boxes that the marks change
    void ShowCurrent(int tile); ///< what the preview shows
    void EnableFound();         ///< what the block has no line for cannot be changed
    void EnablePlace(bool on);
    void EnableAll(bool on);
    void FocusFirst();

signals:
    void RestartWanted(); ///< the run starts over, its pace stays
    void StartWanted();   ///< the run starts over at the pace of the delay

private:
    void MakePlace();
    void MakePlay();
    void ConnectPlay();
    void ApplyDelay(const QString& text);
    void SpinDelay(int step);

    QGroupBox *Frame2, *Frame3;
    QLineEdit *txtXpos, *txtYpos, *txtFrames, *txtStart, *txtCurrent;
    ApplyField *txtDelay, *txtOffset, *txtName;
    QComboBox* cmbAnimMode;
    QCheckBox *chkReverse, *chkGlobalsync;
    QToolButton* cmdDelaySpin[2];
};
