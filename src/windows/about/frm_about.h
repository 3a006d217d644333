#pragma once

#include "windows/about/about_script.h"

#include <QDialog>
#include <QTimer>
#include <functional>

class QLabel;

/// What the About window needs of a player: a module in memory, and silence.
struct TunePlayer
{
    std::function<void(const QByteArray& module)> Play;
    std::function<void()> Stop;
};

/// "About": a text that types itself, three pictures and a tune. Closes with Esc, Enter or its button.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    /// The tune begins when the window shows and ends with the stone, at the latest with the window.
    frmAbout(TunePlayer player, QWidget* owner);
    ~frmAbout() override;

    /// Modal; returns when closed.
    static void Run(TunePlayer player, QWidget* owner);

    void Tick(); ///< of tmrMain
    const AboutScript& Script() const { return script; }

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void MakeParts(const QString& text);
    void ShowState();
    void Break();

    TunePlayer tune;
    AboutScript script;
    QWidget* stage;
    QLabel *Text1, *picme, *picemail, *picError;
    QTimer tmrMain, tmrErrFlash;
};
