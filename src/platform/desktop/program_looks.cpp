#include "platform/desktop/program_looks.h"

#include "platform/images/contrast.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace {

constexpr char ChoiceVariable[] = "GEMFORGE_COLOURS";
constexpr const char* ChoiceNames[] = {"desktop", "light", "dark"};

struct RoleRow
{
    QPalette::ColorRole Role;
    QRgb Colour, Disabled; ///< 0: as enabled
};
constexpr RoleRow DarkRoles[] = {
    {QPalette::Window, 0x2A2D31, 0},
    {QPalette::WindowText, 0xE6E6E6, 0x9AA0A6},
    {QPalette::Base, 0x1E2022, 0x26292C},
    {QPalette::AlternateBase, 0x26292C, 0},
    {QPalette::Text, 0xE6E6E6, 0x9AA0A6},
    {QPalette::PlaceholderText, 0x9AA0A6, 0},
    {QPalette::Button, 0x383C41, 0x2F3337},
    {QPalette::ButtonText, 0xE6E6E6, 0x9AA0A6},
    {QPalette::BrightText, 0xFF9A90, 0},
    {QPalette::Highlight, 0x2A69AC, 0x3E4247},
    {QPalette::HighlightedText, 0xFFFFFF, 0xC8CCD0},
    {QPalette::Link, 0x8AB4F8, 0},
    {QPalette::LinkVisited, 0xC4A7F0, 0},
    {QPalette::ToolTipBase, 0x383C41, 0},
    {QPalette::ToolTipText, 0xE6E6E6, 0},
    {QPalette::Light, 0x4A4E54, 0},
    {QPalette::Midlight, 0x40444A, 0},
    {QPalette::Mid, 0x26292C, 0},
    {QPalette::Dark, 0x1A1C1E, 0},
    {QPalette::Shadow, 0x0E0F10, 0},
};

bool IsDarkPalette(const QPalette& palette)
{
    return IsDarkColour(palette.color(QPalette::Window));
}

} // namespace

QPalette DarkPalette()
{
    QPalette palette;
    for (const RoleRow& row : DarkRoles) {
        palette.setColor(row.Role, QColor(row.Colour));
        palette.setColor(QPalette::Disabled, row.Role, QColor(row.Disabled ? row.Disabled : row.Colour));
    }
    return palette;
}

QPalette LightPalette()
{
    QPalette palette(QColor(0xEF, 0xEF, 0xEF));
    palette.setColor(QPalette::Highlight, QColor(0x30, 0x8C, 0xC6));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x00, 0x57, 0xAE));
    palette.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFF, 0xDC));
    palette.setColor(QPalette::ToolTipText, Qt::black);
    palette.setColor(QPalette::PlaceholderText, QColor(0x6E, 0x6E, 0x6E));
    return palette;
}

ProgramLooks::ProgramLooks(const QDBusConnection& bus) : wish(bus)
{
    const QByteArray told = qgetenv(ChoiceVariable);
    for (const Choice one : {Light, Dark})
        if (told == ChoiceNames[one])
            choice = one;
    connect(&wish, &DesktopWish::Changed, this, &ProgramLooks::Apply);
    QCoreApplication::instance()->installEventFilter(this);
    Apply();
}

void ProgramLooks::Choose(Choice wanted)
{
    qputenv(ChoiceVariable, ChoiceNames[wanted]);
    if (std::exchange(choice, wanted) != wanted)
        Apply();
}

bool ProgramLooks::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == QCoreApplication::instance() && !applying)
        QMetaObject::invokeMethod(this, &ProgramLooks::Apply, Qt::QueuedConnection); // behind the event
    return false;
}

/// The desktop's own palette stays wherever it is of the form that is wanted.
void ProgramLooks::Apply()
{
    applying = true;
    QGuiApplication::setPalette(QPalette());
    const bool paletteDark = IsDarkPalette(QGuiApplication::palette());
    const bool dark = wish.Dark().value_or(paletteDark);
    const bool wanted = choice == AsDesktop ? dark : choice == Dark;
    if (wanted != paletteDark)
        QGuiApplication::setPalette(wanted ? DarkPalette() : LightPalette());
    applying = false;
    if (std::exchange(desktopDark, dark) != dark)
        emit DesktopChanged(dark);
}
