#pragma once

#include "platform/desktop/desktop_wish.h"

class QPalette;

/// Light or dark windows for a whole program: as the desktop has them, or fixed. Programs that are started from here
/// begin with the same choice.
class ProgramLooks : public QObject
{
    Q_OBJECT

public:
    enum Choice { AsDesktop, Light, Dark };

    explicit ProgramLooks(const QDBusConnection& bus = DesktopWish::SessionBus());

    void Choose(Choice wanted);
    bool DesktopIsDark() const { return desktopDark; }

signals:
    void DesktopChanged(bool dark);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Apply();

    DesktopWish wish;
    Choice choice = AsDesktop;
    bool desktopDark = false, applying = false;
};

/// Palettes of our own, for a desktop whose windows are of the other form. In the dark one every text reads, greyed
/// ones too.
QPalette DarkPalette();
QPalette LightPalette();
