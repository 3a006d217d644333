#pragma once

#include <QApplication>

/// Lets no text be lost when memory runs out, or when the program is about to end for a fault: copies of what was not
/// saved are written first, then a message tells it, where one can still be shown.
class GuardedApplication : public QApplication
{
    Q_OBJECT

public:
    GuardedApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    [[noreturn]] void EndWithoutMemory();

    bool ending = false;
};
