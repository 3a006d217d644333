#include "macro/language/run_state.h"
#include "macro/language/windows_of_run.h"
#include "macro/run_stage.h"
#include "macro/started_windows.h"
#include "macro/tags/families.h"

#include <QGuiApplication>
#include <QScreen>

namespace {

/// In pixels; nothing without a window.
QSize ScreenSize(const RunState& run)
{
    const QScreen* screen = run.Stage.HasWindow() ? QGuiApplication::primaryScreen() : nullptr;
    return screen ? (QSizeF(screen->size()) * screen->devicePixelRatio()).toSize() : QSize(0, 0);
}

Value ScreenWidth(RunState& run)
{
    return Value(qint32(ScreenSize(run).width()));
}

Value ScreenHeight(RunState& run)
{
    return Value(qint32(ScreenSize(run).height()));
}

QPoint MousePlace(const RunState& run)
{
    return run.Stage.HasWindow() ? mouse::Position().value_or(QPoint()) : QPoint();
}

Value MouseX(RunState& run)
{
    return Value(qint32(MousePlace(run).x()));
}

Value MouseY(RunState& run)
{
    return Value(qint32(MousePlace(run).y()));
}

/// Of the chosen window as macros have it: nothing while minimised, the whole screen while maximised.
QRect WindowPlace(RunState& run)
{
    const QRect nothing(0, 0, 0, 0);
    if (!run.Stage.HasWindow() || !CheckWindowAlive(run))
        return nothing;
    const auto placement = other_windows::PlacementOf(run.CurrentWindow);
    if (!placement || placement->How == other_windows::State::Minimised)
        return nothing;
    return placement->How == other_windows::State::Maximised ? QRect(QPoint(0, 0), ScreenSize(run)) : placement->Place;
}

Value WinX(RunState& run)
{
    return Value(qint32(WindowPlace(run).x()));
}

Value WinY(RunState& run)
{
    return Value(qint32(WindowPlace(run).y()));
}

Value WinWidth(RunState& run)
{
    return Value(qint32(WindowPlace(run).width()));
}

Value WinHeight(RunState& run)
{
    return Value(qint32(WindowPlace(run).height()));
}

Value WinVisible(RunState& run)
{
    if (!run.Stage.HasWindow() || !CheckWindowAlive(run))
        return {};
    return Value::Truth(other_windows::IsVisible(run.CurrentWindow));
}

Value WinAlive(RunState& run)
{
    return run.Stage.HasWindow() ? Value::Truth(IsWindowAlive(run)) : Value();
}

Value TitleOfWindow(RunState& run)
{
    constexpr qsizetype LongestTitle = 256;
    if (!run.Stage.HasWindow() || !CheckWindowAlive(run))
        return {};
    const QString title = other_windows::TitleOf(run.CurrentWindow).left(LongestTitle);
    return Value(title.section(QChar(u'\0'), 0, 0).trimmed());
}

Value WinUnderMouse(RunState& run)
{
    if (!run.Stage.HasWindow())
        return {};
    const other_windows::Handle window = other_windows::UnderMouse();
    const QString alias = StartedWindows.AliasOf(window);
    return Value(alias.isEmpty() ? StartedWindows.AliasOf(other_windows::OwnerOf(window)) : alias);
}

Value WinTextX(RunState& run)
{
    return Value(qint32(run.Stage.TextOrigin().x()));
}

Value WinTextY(RunState& run)
{
    return Value(qint32(run.Stage.TextOrigin().y()));
}

constexpr PlainTag WindowTagRows[] = {
    {"screenwidth", "Width of the screen in pixels.", ScreenWidth},
    {"screenheight", "Height of the screen in pixels.", ScreenHeight},
    {"mousex", "Where the mouse is, from the screen's left edge.", MouseX},
    {"mousey", "Where the mouse is, from the screen's upper edge.", MouseY},
    {"winx", "Left edge of the chosen window; 0 while it is minimised or maximised.", WinX},
    {"winy", "Its upper edge.", WinY},
    {"winwidth", "Its width; the screen's while it is maximised.", WinWidth},
    {"winheight", "Its height.", WinHeight},
    {"winvisible", "Is it to be seen? true or false.", WinVisible},
    {"winalive", "Is it still there? true or false.", WinAlive},
    {"wintitle", "Its title.", TitleOfWindow},
    {"winundermouse", "The alias of the window under the mouse, or nothing.", WinUnderMouse},
    {"wintextx", "Where the text begins on the screen, from the left edge.", WinTextX},
    {"wintexty", "The same from the upper edge.", WinTextY},
};

} // namespace

std::span<const PlainTag> WindowTags()
{
    return WindowTagRows;
}
