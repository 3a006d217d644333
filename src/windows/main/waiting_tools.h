#pragma once

#include <QObject>
#include <deque>
#include <functional>

/// Windows that files have asked for: one after the other, each once its caller has returned and nothing else is at
/// work.
class WaitingTools : public QObject
{
public:
    explicit WaitingTools(QObject* parent);

    /// `open` returns when its window has closed.
    void Add(std::function<void()> open);
    void Hold(bool on); ///< while the program starts: its own questions come first

private:
    void OpenNext();

    std::deque<std::function<void()>> waiting;
    bool held = false;
};
