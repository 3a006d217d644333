#pragma once

#include <QString>
#include <tl/expected.hpp>

/// Why an operation failed: the path it was about (may be empty) and the reason in words.
struct Failure
{
    QString Path;
    QString Reason;

    /// One text for the user, path first, "^" between the two as messages break lines.
    QString Text() const;
};

/// What a routine gives back that can fail. Mark the routine [[nodiscard]].
template <class T = void>
using Result = tl::expected<T, Failure>;

inline tl::unexpected<Failure> Fail(QString path, QString reason)
{
    return tl::unexpected<Failure>(Failure{std::move(path), std::move(reason)});
}
