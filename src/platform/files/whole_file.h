#pragma once

#include "platform/files/beside_file.h"
#include "platform/result.h"

#include <functional>
#include <optional>

/// A file written piece by piece that takes its target's place only when it is whole, as paths::WriteWhole does with
/// bytes at hand. Where the target may only be written in place (its folder is closed, its owner is another, it has
/// further names), the pieces wait in the user's state folder. One that is given up leaves nothing behind.
class WholeFile
{
public:
    /// `mode`: permissions of a new file. An existing one keeps its own, its owner and its extended attributes.
    [[nodiscard]] Result<> Open(const QString& path, mode_t mode = 0666);
    [[nodiscard]] Result<> Put(QByteArrayView bytes, off_t at);
    [[nodiscard]] Result<> Commit();

    /// Put and Commit for a file that consists of these bytes.
    [[nodiscard]] Result<> CommitAs(QByteArrayView bytes);

    std::function<Result<>()> Before; ///< runs when all bytes lie safely elsewhere; its failure ends the write

private:
    struct Attempt
    {
        int Error = 0;
        bool ElseInPlace = false;            ///< only the folder, or an owner that cannot be kept, stood in the way
        bool Replaced = false;               ///< the new bytes are there, what failed came after
        std::optional<Failure> Refused = {}; ///< by Before
    };

    int Look();
    int OpenSpool();
    Attempt Place();
    Result<> RunBefore();
    Result<> Settle(std::optional<QByteArrayView> bytes);

    QString path;                   ///< as the user knows it
    QByteArray target;              ///< where it really is
    std::optional<FileFacts> facts; ///< if there is such a file
    bool inPlace = false;
    BesideFile beside;
};
