#include "frame/frame_state.h"
#include "frame/messages/asker.h"
#include "macro/commands/families.h"
#include "macro/language/run_state.h"
#include "macro/language/run_turn.h"
#include "macro/language/seen_target.h"
#include "macro/language/waiting.h"
#include "macro/language/windows_of_run.h"
#include "platform/screen/other_windows.h"

#include "frame/run_scope.h"

namespace {

void KeySend(RunState& run, Arguments& in)
{
    if (!CheckHasWindow(run) || !CheckWindowAlive(run))
        return;
    const QString text = in.Text(1);
    if (run.Failed())
        return;
    const Result<> sent = keys::Send(text, TurnOf(run, QStringLiteral("keysend")));
    RaiseWindow(run);
    if (!sent && !WasStopped(sent.error()))
        run.Fail("Error with send key string.");
}

void MouseMove(RunState& run, Arguments& in)
{
    const qint32 x = in.Number(1), y = in.Number(2);
    if (!run.Failed() && CheckHasWindow(run))
        mouse::Move({x, y});
}

void MouseButton(RunState& run, Arguments& in)
{
    struct Row
    {
        const char* Word;
        mouse::Button Which;
        bool Down;
    };
    constexpr Row Rows[] = {{"leftdown", mouse::Button::Left, true},     {"leftup", mouse::Button::Left, false},
                            {"rightdown", mouse::Button::Right, true},   {"rightup", mouse::Button::Right, false},
                            {"middledown", mouse::Button::Middle, true}, {"middleup", mouse::Button::Middle, false}};
    const QString word = in.Word(1) + in.Word(2);
    if (run.Failed() || !CheckHasWindow(run))
        return;
    for (const Row& row : Rows) {
        if (word != QLatin1String(row.Word))
            continue;
        const int bit = 1 << int(row.Which);
        run.ButtonsDown = row.Down ? run.ButtonsDown | bit : run.ButtonsDown & ~bit;
        (row.Down ? mouse::Press : mouse::Release)(row.Which);
    }
}

/// The keys held now, as 1 << WatchedKey; none if that cannot be told.
std::optional<unsigned> HeldKeys()
{
    if (Frame.Ending || Frame.Closing)
        return std::nullopt;
    const Answer answer = Frame.Ask->Ask(KeysQuestion{}); // opens no window, so it is no work of its own
    const auto* held = std::get_if<KeySet>(&answer);
    return held ? std::optional(held->Bits) : std::nullopt;
}

/// The name of the last of the table's keys that is held.
QString NameOfHeld(unsigned bits)
{
    constexpr const char* Names[] = {"up",     "down",  "left", "right",  "control", "shift",
                                     "return", "space", "tab",  "lmouse", "rmouse",  "mlmouse"};
    QString name;
    for (size_t key = 0; key < std::size(Names); ++key)
        if (bits & (1U << key))
            name = QLatin1String(Names[key]);
    return name;
}

/// Looks again and again until some key is held, or none. A stop ends it, and so does what knows no keys.
unsigned HeldWhen(RunState& run, bool held)
{
    constexpr int KeyLookEvery = 4; // ms
    const SeenTarget seen(run);
    for (;;) {
        const std::optional<unsigned> bits = HeldKeys();
        if (!bits || (*bits != 0) == held)
            return bits.value_or(0);
        if (!run.Scope.Turn())
            return 0;
        WaitFor(run.Scope, KeyLookEvery);
    }
}

void KeyGet(RunState& run, Arguments& in)
{
    const QString word = in.Count() > 0 ? in.Word(1) : QString();
    if (run.Failed())
        return;
    const bool waits = word == QLatin1String("wait"), flushes = word == QLatin1String("flush");
    if (in.Count() > 0 && !waits && !flushes) {
        run.Fail("Only 'KeyGet','KeyGet Wait' or 'Keyget Flush' are required");
        return;
    }
    if (!CheckHasWindow(run))
        return;
    const unsigned bits = waits || flushes ? HeldWhen(run, waits) : HeldKeys().value_or(0);
    run.Last.KeyGet = Value(NameOfHeld(bits));
}

constexpr CommandWord MouseAndKeyRows[] = {
    {"keysend", ExactlyAny(1), TakesTime, "TEXT",
     "Types into the window in front. + ^ % before a key hold Shift, Ctrl, Alt; {ENTER}, {LEFT 5} and the like are "
     "keys.",
     KeySend},
    {"keyget", AtLeastAny(0), TakesTime, "[wait | flush]",
     "Which key or mouse button is held: [lastkeyget]. wait waits until one is, flush until none is.", KeyGet},
    {"mousemove", ExactlyAny(2), NoWordFlags, "X Y", "Moves the mouse, in pixels of the screen.", MouseMove},
    {"mousebutton", Exactly(2), NoWordFlags, "left | right | middle down | up", "Presses or releases a mouse button.",
     MouseButton},
};

} // namespace

std::span<const CommandWord> MouseAndKeyCommands()
{
    return MouseAndKeyRows;
}
