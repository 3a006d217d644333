#pragma once

#include "frame/messages/asker.h"
#include "frame/messages/messages.h"
#include "windows/messages/message_colour.h"

#include <QDialog>
#include <optional>

class QLabel;
class QPlainTextEdit;
class QPushButton;

/// The message window: borderless and modal, a gradient strip with the title, icon, text and any number of buttons.
/// Esc, the close box and the end of the program answer with the record's way out.
class frmMess : public QDialog
{
public:
    frmMess(const MessageRecord& record, QWidget* owner);

    /// Shows the window and waits.
    Pressed Ask();

    void reject() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeButtons();
    void PlaceParts();
    void ColourText();
    QSize MeasureText(int widest) const;

    MessageRecord record;
    MessageColours colours;
    Pressed answer;
    QLabel *lblTitle, *imgIcon;
    QPlainTextEdit* lblTEXT;
    std::vector<QPushButton*> cmdButton;
    std::optional<QPoint> grip; ///< where the title is held, from the window's corner
};
