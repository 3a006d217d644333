#pragma once

#include <QString>
#include <vector>

/// Whether this program runs already for this user: a lock in XDG_RUNTIME_DIR (where there is none, in a folder of
/// the user's own below the temporary folder) that the system itself gives back when a process ends, however it ends.
class SingleInstance
{
public:
    /// Takes the lock `name` and holds it for the object's life, unless another process has it.
    explicit SingleInstance(const QString& name);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Takes a lock on a folder of this user's that only one instance may work in. It holds whatever the environment
    /// names as runtime folder. A folder of another user's is passed over.
    void Claim(const QString& folder);

    /// False too where no lock file can be made: a start is never refused for that.
    bool AnotherRuns() const { return another; }

private:
    void Lock(int file);

    std::vector<int> held;
    bool another = false;
};
