#pragma once

#include "frame/recovery/recovery_copies.h"

#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <thread>

namespace recovery {

/// A thread that writes and removes copies; it sees bytes and paths only. Of several orders for one copy that wait
/// the last counts. What was ordered is done before the worker goes.
class Worker
{
public:
    using Done = std::function<void(const QString& name, const Result<>& written)>;
    /// `onDone` is called in the worker's thread, behind each Write.
    Worker(const QString& folder, const QString& spare, Done onDone);
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void Write(const QString& name, const CopyFacts& facts, const QByteArray& bytes);
    void Remove(const QString& name);
    void Wait(); ///< until all orders are done
    /// Waits, then tells why the copy of that name (or, without a name, any copy) could not be written.
    [[nodiscard]] Result<> Settled(const QString& name = {});

private:
    struct Copy
    {
        CopyFacts Facts;
        QByteArray Bytes;
    };
    void Order(const QString& name, std::optional<Copy> copy);
    void Run();
    Result<> Carry(const QString& name, const std::optional<Copy>& copy);
    Result<> Written(const QString& name, const Copy& copy);

    RunFolder run;
    Done done;
    std::mutex guard;
    std::condition_variable changed;
    std::map<QString, std::optional<Copy>> orders; ///< nothing: remove
    std::map<QString, Failure> failing;            ///< copies whose last order failed
    bool busy = false, ending = false;
    std::thread thread;
};

} // namespace recovery
