#include "platform/files/ini_file.h"

#include "platform/files/file_steps.h"
#include "platform/files/ini_text.h"
#include "platform/files/paths.h"

#include <QElapsedTimer>
#include <QFile>
#include <vector>

const QString IniFile::NotFound = QStringLiteral("[NOT FOUND]");

namespace {

constexpr qint64 LargestIni = qint64(16) << 20;
constexpr qint64 LookAgainAfter = 100; ///< ms between two looks for a change by another program

/// What tells one state of a file from the next.
struct Stamp
{
    bool There = false;
    ino_t File = 0;
    off_t Size = 0;
    qint64 Time = 0; ///< ns

    bool operator==(const Stamp&) const = default;
};

Stamp StampOf(const QString& path)
{
    FileFacts facts{};
    if (Steps().Stat(QFile::encodeName(path), &facts) != 0)
        return {};
    return {true, facts.st_ino, facts.st_size, facts.st_mtim.tv_sec * 1'000'000'000LL + facts.st_mtim.tv_nsec};
}

/// One write that is not in the file yet: a key, or a whole section if the key is null.
struct Edit
{
    QString Section, Key, Text;
};

} // namespace

struct IniFile::Parsed
{
    QString Path;
    IniText Text;
    Stamp Seen;
    QElapsedTimer LastLook;
    QString WhyNotWritten; ///< set if the file is there and not whole in `Text`
    std::vector<Edit> Pending;
    int Batches = 0;

    void Look(bool atOnce);
    void Load();
    void Apply(const Edit& edit);
    Result<> Write(Edit edit);
    Result<> Save();
};

void IniFile::Parsed::Look(bool atOnce)
{
    if (!atOnce && LastLook.isValid() && !LastLook.hasExpired(LookAgainAfter))
        return;
    const Stamp now = StampOf(Path);
    if (!LastLook.isValid() || now != Seen) {
        Load();
        for (const Edit& edit : Pending)
            Apply(edit);
    }
    LastLook.start();
}

/// A file that is too large, holds a NUL or cannot be read is read as far as it goes and never written.
void IniFile::Parsed::Load()
{
    Seen = StampOf(Path);
    Text = IniText();
    WhyNotWritten.clear();
    if (!Seen.There)
        return;
    const auto bytes = paths::ReadWhole(Path, LargestIni);
    if (!bytes) {
        WhyNotWritten = bytes.error().Reason;
        return;
    }
    if (bytes->contains('\0'))
        WhyNotWritten = QStringLiteral("Not a text file");
    Text = IniText(*bytes);
}

void IniFile::Parsed::Apply(const Edit& edit)
{
    if (edit.Key.isNull())
        Text.SetItems(edit.Section, edit.Text);
    else
        Text.Set(edit.Section, edit.Key, edit.Text);
}

Result<> IniFile::Parsed::Write(Edit edit)
{
    Apply(edit);
    // Edits stay pending after a failed save; an older one of the same place is past.
    std::erase_if(Pending, [&](const Edit& old) {
        return Batches == 0 && old.Section == edit.Section && (edit.Key.isNull() || old.Key == edit.Key);
    });
    Pending.push_back(std::move(edit));
    return Batches > 0 ? Result<>() : Save();
}

/// What other programs wrote since the last look comes in first, so that only what was written here changes.
Result<> IniFile::Parsed::Save()
{
    if (Pending.empty())
        return {};
    Look(true);
    if (!WhyNotWritten.isEmpty())
        return Fail(Path, WhyNotWritten);
    if (Result<> written = paths::WriteWhole(Path, Text.Bytes()); !written)
        return written;
    Pending.clear();
    Seen = StampOf(Path);
    LastLook.start();
    return {};
}

IniFile::IniFile(QString path) : parsed(std::make_unique<Parsed>())
{
    parsed->Path = std::move(path);
}

IniFile::~IniFile() = default;
IniFile::IniFile(IniFile&&) noexcept = default;
IniFile& IniFile::operator=(IniFile&&) noexcept = default;

QString IniFile::Path() const
{
    return parsed->Path;
}

QString IniFile::Read(const QString& section, const QString& key) const
{
    parsed->Look(false);
    const QString value = parsed->Text.Value(section, key);
    return value.isNull() ? NotFound : value;
}

QString IniFile::ReadSection(const QString& section) const
{
    parsed->Look(false);
    return parsed->Text.Items(section);
}

Result<> IniFile::Write(const QString& section, const QString& key, const QString& value)
{
    if (!IniText::MayBeSection(section) || !IniText::MayBeKey(key) || !IniText::MayBeValue(value))
        return Fail(parsed->Path, QStringLiteral("An ini file cannot hold [%1] %2=%3").arg(section, key, value));
    parsed->Look(parsed->Batches == 0);
    const QString old = parsed->Text.Value(section, key);
    if (parsed->Pending.empty() && !old.isNull() && old == value)
        return {};
    return parsed->Write({section, key, value});
}

Result<> IniFile::WriteSection(const QString& section, const QString& items)
{
    bool fits = IniText::MayBeSection(section);
    for (const QString& item : items.split(QChar(u'\0'), Qt::SkipEmptyParts))
        fits = fits && item.contains(u'=') && IniText::MayBeKey(item.section(u'=', 0, 0)) && IniText::MayBeValue(item);
    if (!fits)
        return Fail(parsed->Path, QStringLiteral("An ini file cannot hold this section: ") + section);
    parsed->Look(parsed->Batches == 0);
    return parsed->Write({section, QString(), items});
}

void IniFile::OpenBatch()
{
    if (parsed->Batches++ == 0)
        parsed->Look(true);
}

Result<> IniFile::CloseBatch()
{
    if (parsed->Batches == 0 || --parsed->Batches > 0)
        return {};
    return parsed->Save();
}
