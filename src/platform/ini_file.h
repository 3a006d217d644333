#pragma once

#include "platform/result.h"

#include <memory>

/// One classic ini file: sections in square brackets, key=value lines, names without regard to case. Comments and
/// order of the file survive a write. The file is parsed once and held until another program changes it (path,
/// size and time are compared at each first access after a pause); a write goes through paths::WriteWhole.
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

    /// Creates file, section or key as needed. While a batch is open the file is written at its end.
    [[nodiscard]] Result<> Write(const QString& section, const QString& key, const QString& value);

    /// The section as key=value items, each ended by a character 0; empty if there is none.
    QString ReadSection(const QString& section) const;

    /// Replaces the section by such a text; an empty text removes its keys.
    [[nodiscard]] Result<> WriteSection(const QString& section, const QString& items);

    /// Many writes, one file operation: open before, close after. Nests.
    void OpenBatch();
    [[nodiscard]] Result<> CloseBatch();

    QString Path() const;

private:
    struct Parsed;
    std::unique_ptr<Parsed> parsed;
};
