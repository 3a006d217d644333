#pragma once

#include <QObject>

class QWidget;

/// F1 in the windows above the main one: in a dialog the page of what is under the mouse, else of the part with the
/// focus, else of the dialog; in an open menu the page of the chosen entry. Parts and dialogs name their page by
/// SetHelpSubject.
class DialogKeys : public QObject
{
    Q_OBJECT

public:
    explicit DialogKeys(QWidget* mainWindow);

signals:
    void HelpPressed(const QString& helpId);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
