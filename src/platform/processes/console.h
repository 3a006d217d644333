#pragma once

#include <QByteArray>
#include <QObject>
#include <memory>

class QSocketNotifier;

/// A pseudo terminal that a child prints on: to a pipe programs hand their lines over late, and not at all when they
/// are killed. It is nobody's controlling terminal, so its end is no signal to the child.
class Console : public QObject
{
    Q_OBJECT

public:
    explicit Console(QObject* parent = nullptr);
    ~Console() override;

    [[nodiscard]] int Open(); ///< 0 or the error number
    int ChildEnd() const { return childEnd; }
    void CloseChildEnd(); ///< once the child has its own
    void ReadRest();      ///< what has been printed and not told yet

signals:
    void Printed(const QByteArray& bytes);

private:
    bool ReadPiece();

    int ownEnd = -1, childEnd = -1;
    std::unique_ptr<QSocketNotifier> notifier;
};
