#pragma once

#include "platform/result.h"
#include "services/registry_tree.h"

#include <functional>
#include <memory>

/// The typed keys behind the registry, kept in one JSON file. Each change reads it anew and replaces it whole, under a
/// lock that other programs take too; each reading sees what they have written. A file that cannot be understood reads
/// as empty and is never written.
class RegistryStore
{
public:
    /// Whether changes go into the file, or live for this store alone and as long as it does.
    enum class Keeping { File, Memory };

    /// `file`: by default "registry.json" in the user's configuration folder.
    explicit RegistryStore(QString file = {}, Keeping keeping = Keeping::File);
    ~RegistryStore();
    RegistryStore(const RegistryStore&) = delete;
    RegistryStore& operator=(const RegistryStore&) = delete;

    /// The keys as they are now; its own keys are the roots.
    const RegistryKey& Root();

    /// Changes the keys by `change`, which gives back whether it did. Nothing is written if not; on failure all is as
    /// before. A change within a change is part of it: the file is written once.
    [[nodiscard]] Result<bool> Change(const std::function<bool(RegistryKey& root)>& change);

private:
    class Held;

    void Look();
    Result<bool> ChangeFile(const std::function<bool(RegistryKey& root)>& change);
    Result<> Save() const;

    const QString path;
    const Keeping keeping;
    RegistryKey root;
    QString damage;             ///< why the file cannot be understood
    std::unique_ptr<Held> seen; ///< the state of the file that `root` is of
    bool changing = false;
};
