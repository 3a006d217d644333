#include "frame/recovery/recovery_worker.h"

namespace recovery {

Worker::Worker(const QString& folder, const QString& spare, Done onDone)
    : run(folder, spare), done(std::move(onDone)), thread([this] { Run(); })
{
}

Worker::~Worker()
{
    {
        const std::lock_guard lock(guard);
        ending = true;
    }
    changed.notify_all();
    thread.join();
}

void Worker::Write(const QString& name, const CopyFacts& facts, const QByteArray& bytes)
{
    Order(name, Copy{facts, bytes});
}

void Worker::Remove(const QString& name)
{
    Order(name, std::nullopt);
}

void Worker::Order(const QString& name, std::optional<Copy> copy)
{
    {
        const std::lock_guard lock(guard);
        orders.insert_or_assign(name, std::move(copy));
    }
    changed.notify_all();
}

void Worker::Wait()
{
    std::unique_lock lock(guard);
    changed.wait(lock, [this] { return orders.empty() && !busy; });
}

Result<> Worker::Settled(const QString& name)
{
    std::unique_lock lock(guard);
    changed.wait(lock, [this] { return orders.empty() && !busy; });
    const auto found = name.isEmpty() ? failing.begin() : failing.find(name);
    return found == failing.end() ? Result<>() : tl::unexpected(found->second);
}

void Worker::Run()
{
    std::unique_lock lock(guard);
    while (true) {
        changed.wait(lock, [this] { return ending || !orders.empty(); });
        if (orders.empty())
            return;
        const auto order = orders.extract(orders.begin());
        busy = true;
        lock.unlock();
        const Result<> carried = Carry(order.key(), order.mapped());
        lock.lock();
        if (carried)
            failing.erase(order.key());
        else
            failing.insert_or_assign(order.key(), carried.error());
        busy = false;
        changed.notify_all();
    }
}

Result<> Worker::Carry(const QString& name, const std::optional<Copy>& copy)
{
    if (!copy) {
        run.Remove(name);
        return {};
    }
    const Result<> written = Written(name, *copy);
    done(name, written);
    return written;
}

Result<> Worker::Written(const QString& name, const Copy& copy)
try {
    return run.Write(name, copy.Facts, copy.Bytes);
} catch (const std::bad_alloc&) {
    return Fail(name, QStringLiteral("There is not enough memory."));
}

} // namespace recovery
