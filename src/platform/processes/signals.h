#pragma once

#include <QObject>
#include <array>
#include <csignal>

/// A file that would grow beyond the user's limit is a write that fails with its reason, not the end of the program.
void OutliveFileLimits();

/// The system's wish that the program ends (SIGTERM, SIGHUP, SIGINT) as a signal of the event loop. One object at a
/// time; with its end the former handlers come back.
class EndSignals : public QObject
{
    Q_OBJECT

public:
    explicit EndSignals(QObject* parent = nullptr);
    ~EndSignals() override;

    static constexpr std::array<int, 3> Numbers{SIGTERM, SIGHUP, SIGINT};

signals:
    void EndWanted(int number);

private:
    void Drain();

    std::array<int, 2> pipe{-1, -1};
    std::array<struct sigaction, Numbers.size()> before{};
};
