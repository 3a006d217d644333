#include "windows/main/pane_mouse.h"

#include "conf/locate_image.h"
#include "frame/documents/documents.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "windows/blocks/frm_inject.h"

#include <QTimer>
#include <algorithm>

namespace {

struct MouseRow
{
    Qt::MouseButton Button;
    int FirstMode, LastMode;
    bool Previews; ///< only where media of the mode can be opened
    void (*Action)();
};
constexpr MouseRow MouseRows[] = {
    {Qt::MiddleButton, ModeGfx, ModeGfx, false, EditElement},
    {Qt::RightButton, ModeTxt, ModeEdi, true, EditAnimation},
    {Qt::LeftButton, ModeGfx, ModeMus, true, QuickPreview},
};

bool WithAlt(Qt::KeyboardModifiers keys)
{
    return (keys & (Qt::ShiftModifier | Qt::MetaModifier)) == 0 && (keys & Qt::AltModifier) != 0;
}

} // namespace

bool RunMouseShortcut(Qt::MouseButton button, Qt::KeyboardModifiers keys)
{
    if (!WithAlt(keys))
        return false;
    const int mode = Frame.CurrentMode;
    const auto row = std::find_if(std::begin(MouseRows), std::end(MouseRows), [&](const MouseRow& candidate) {
        return candidate.Button == button && mode >= candidate.FirstMode && mode <= candidate.LastMode &&
               (!candidate.Previews || Tools().CanPreview(mode));
    });
    if (row == std::end(MouseRows))
        return false;
    QTimer::singleShot(0, row->Action);
    return true;
}
