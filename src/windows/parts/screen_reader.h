#pragma once

#include <QAccessible>

/// Setting `ScreenReader`: do panes tell their text to assistive technology? They do it always, never, or (0, as
/// shipped) from the moment one gets active until it goes; telling costs time at each key in large files.
class ScreenReader : public QAccessible::ActivationObserver
{
public:
    /// Make it before the first pane. `setting` as in user.ini; anything unknown is automatic.
    explicit ScreenReader(int setting);
    ~ScreenReader() override;
    ScreenReader(const ScreenReader&) = delete;
    ScreenReader& operator=(const ScreenReader&) = delete;

    void accessibilityActiveChanged(bool active) override;

private:
    bool automatic;
};
