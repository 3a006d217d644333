#pragma once

#include "conf/element_record.h"

#include <QWidget>

class ApplyField;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QHBoxLayout;
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
    /// What the block has no line for cannot be changed, unless its line is to be added: `mayAdd` offers that.
    void EnableFound(bool mayAdd);
    FieldFlags Added() const; ///< fields whose line is to be added
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
    QToolButton* AddButton(QWidget* box, BlockField field, const char* what);
    QHBoxLayout* WithAdd(QWidget* box, BlockField field, const char* what);
    void EnableField(BlockField field, bool on);
    void Add(BlockField field, bool on);
    void ApplyDelay(const QString& text);
    void SpinDelay(int step);

    QGroupBox *Frame2, *Frame3;
    QLineEdit *txtXpos, *txtYpos, *txtFrames, *txtStart, *txtCurrent;
    ApplyField *txtDelay, *txtOffset, *txtName;
    QComboBox* cmbAnimMode;
    QCheckBox *chkReverse, *chkGlobalsync;
    QToolButton* cmdDelaySpin[2];
    std::array<QToolButton*, RecordFields> cmdAdd{}; ///< none for what every block on a sheet has
};
