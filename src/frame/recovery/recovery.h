#pragma once

#include "text/document_text.h"

#include <QDateTime>
#include <QObject>
#include <memory>
#include <optional>
#include <vector>

/// A text that was not saved when an earlier run ended.
struct RecoveredText
{
    QString Folder;       ///< of this copy
    QString DocumentPath; ///< file it belongs to; empty for one that was never saved
    int Mode = 1;
    FileEncoding Encoding = FileEncoding::Utf8;
    LineBreak LineEnd = LineBreak::CrLf;
    QDateTime Kept;
    QByteArray Bytes;        ///< as the file would have been written
    bool SameAsDisk = false; ///< the file holds these very bytes now
    bool Code = false;       ///< a macro's source: it belongs on the workbench, not in a tab
};

/// How long an edit may wait for its copy, in milliseconds.
struct RecoveryPace
{
    int Quiet = 2'000;      ///< after the last edit
    int Most = 10'000;      ///< after the first edit that has no copy
    int MostLarge = 60'000; ///< the same above LargeText bytes
};
constexpr qsizetype LargeText = qsizetype(16) << 20;

/// Keeps copies of unsaved text: two seconds after the last edit, ten at most (sixty above 16 MB). One copy of the
/// bytes is taken on the main thread; a worker writes it, the mark that says it is whole last. Readable by the owner
/// alone. Copies of a tab go when its text is saved or given up.
class Recovery : public QObject
{
    Q_OBJECT

public:
    /// Copies lie in the folder `recovery` of `stateFolder` (the desktop's state folder, or a test's own).
    /// `spareFolder`: for copies where the state folder can not be written; empty: none.
    explicit Recovery(const QString& stateFolder, QObject* parent = nullptr, RecoveryPace pace = {},
                      const QString& spareFolder = {});
    ~Recovery() override;

    /// Beside the tabs 0 to 7: the code on the workbench, which all routines take as one more tab.
    static constexpr int CodeTab = 8;
    /// The code that is on the workbench from now on, and the macro it belongs to; null: none. A copy of the one before
    /// stays as it is.
    void SetCode(const DocumentText* code, const QString& macro = {});

    void TextEdited(int tab);  ///< the pane of the tab changed and is Modified
    void TextSettled(int tab); ///< saved, reverted or given up: its copy goes
    /// Keeps the tab's text under a copy of its own before it is emptied by another's save. Written on return.
    /// A failure: it is not kept, and must not be emptied.
    [[nodiscard]] Result<> KeepApart(int tab);
    /// The same for a text that the user has let go: kept for seven days, and not offered at the next start.
    [[nodiscard]] Result<> KeepClosed(int tab);
    /// A failure: some text is kept nowhere.
    [[nodiscard]] Result<>
    KeepAllNow(); ///< every modified tab, written before it returns; for close, SIGTERM and log-out
    void WaitForWorker();

    /// Whole copies of runs that have ended, the newest first. Truncated, foreign or stale data is passed over, never
    /// a failure.
    std::vector<RecoveredText> FindRecovered() const;
    std::optional<RecoveredText> LastClosed() const; ///< of this run or an earlier one; nothing: none
    void Forget(const RecoveredText& text);

private:
    void Written(const QString& name, const Result<>& written);

    struct Private;
    std::unique_ptr<Private> d;
};

/// A spare folder for an ordinary run: below the temporary folder, the user's own, open to nobody else.
QString SpareRecoveryFolder();
