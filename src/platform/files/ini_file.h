#pragma once

#include "platform/result.h"

#include <memory>

/// One classic ini file: sections in square brackets, key=value lines, names without regard to case. Comments and
/// order of the file survive a write, as does every line that is not written to. The file is parsed once and held
/// until another program changes it (looked at before each write and at most every 100 ms before a read).
///
/// Values run to the end of their line without outer blanks; to keep those or line breaks is the caller's business.
/// A file that cannot be read, holds a NUL or is above 16 MB reads as far as it goes and is never written. What a
/// failed write could not store still reads as written and is tried again with the next write.
class IniFile
{
public:
    explicit IniFile(QString path);
    ~IniFile();
    IniFile(IniFile&&) noexcept;
    IniFile& operator=(IniFile&&) noexcept;

    /// What a missing key reads as.
    static const QString NotFound;

    /// Value of a key, or NotFound.
    QString Read(const QString& section, const QString& key) const;

    /// Creates file, section or key as needed. While a batch is open the file is written at its end. Fails for a text
    /// that would not come back (a line break, a key with "="), for a file that cannot be written and as WriteWhole
    /// does.
    [[nodiscard]] Result<> Write(const QString& section, const QString& key, const QString& value);

    /// The section as key=value items, each ended by a character 0; empty if there is none.
    QString ReadSection(const QString& section) const;

    /// Replaces the section's keys by such a text, its comments stay; an empty text removes its keys.
    [[nodiscard]] Result<> WriteSection(const QString& section, const QString& items);

    /// Many writes, one file operation: open before, close after. Nests.
    void OpenBatch();
    [[nodiscard]] Result<> CloseBatch();

    QString Path() const;

private:
    struct Parsed;
    std::unique_ptr<Parsed> parsed;
};
