#include "frame/recovery/recovery.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/recovery/recovery_worker.h"
#include "platform/files/paths.h"

#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>

namespace {

constexpr qint64 Never = -1;
constexpr int Slots = Recovery::CodeTab + 1;

struct WaitingTab
{
    qint64 FirstEdit = Never, LastEdit = Never; ///< without a copy yet
    qint64 Again = Never;                       ///< when a copy that failed is tried once more
    bool HasCopy = false;

    bool Waits() const { return FirstEdit != Never || Again != Never; }
};

const QString TabCopies = QStringLiteral("tab-");

QString CopyName(int tab)
{
    return TabCopies + QString::number(tab);
}

recovery::CopyFacts FactsOf(const DocumentText& pane)
{
    recovery::CopyFacts facts;
    facts.Encoding = pane.FitsEncoding() ? pane.Encoding() : FileEncoding::Utf8;
    facts.LineEnd = pane.LineEnd();
    facts.Kept = QDateTime::currentMSecsSinceEpoch();
    return facts;
}

/// As the file would be written; a text that does not fit its encoding, as UTF-8. Where the bytes need not outlive the
/// next edit they are the pane's own: a large text is then not in memory once more.
QByteArray BytesOf(const DocumentText& pane, bool untilWritten)
{
    const bool own = pane.Encoding() == FileEncoding::Utf8 || !pane.FitsEncoding();
    if (!own)
        return pane.FileBytes();
    const QByteArrayView bytes = pane.Bytes();
    return untilWritten ? QByteArray::fromRawData(bytes.data(), bytes.size()) : bytes.toByteArray();
}

} // namespace

struct Recovery::Private
{
    Private(const QString& folder, const QString& spare, RecoveryPace pace, recovery::Worker::Done done)
        : Folder(folder), Spare(spare), Pace(pace), Worker(folder, spare, std::move(done))
    {
        Clock.start();
    }

    /// Null: there is none, or nobody sees it.
    const DocumentText* TextOf(int tab) const
    {
        if (tab == CodeTab)
            return Code;
        return Frame.Documents.at(tab).Face.Visible ? &Panes().Pane(tab) : nullptr;
    }

    qint64 DueAt(int tab) const
    {
        const WaitingTab& waiting = Tabs.at(tab);
        if (waiting.FirstEdit == Never)
            return waiting.Again;
        const DocumentText* text = TextOf(tab);
        const bool large = text && text->Bytes().size() > LargeText;
        return std::min(waiting.LastEdit + Pace.Quiet, waiting.FirstEdit + (large ? Pace.MostLarge : Pace.Most));
    }

    /// `untilWritten`: the caller waits for the worker and lets nothing change meanwhile.
    void Keep(int tab, const QString& name, bool untilWritten)
    {
        const DocumentText& pane = tab == CodeTab ? *Code : Panes().Pane(tab);
        recovery::CopyFacts facts = FactsOf(pane);
        if (tab == CodeTab) {
            facts.DocumentPath = Macro;
            facts.Code = true;
        } else {
            const Document& document = Frame.Documents.at(tab);
            facts.DocumentPath = HasFile(document) ? document.Path : QString();
            facts.Mode = document.Mode;
        }
        Worker.Write(name, facts, BytesOf(pane, untilWritten));
    }

    void KeepTab(int tab, bool untilWritten)
    {
        Keep(tab, CopyName(tab), untilWritten);
        Tabs.at(tab) = {.HasCopy = true};
    }

    /// A full disk may have room again although nobody types.
    void TryAgain(const QString& name)
    {
        if (!name.startsWith(TabCopies))
            return;
        Tabs.at(name.mid(TabCopies.size()).toInt()).Again = Clock.elapsed() + Pace.Most;
        if (!Timer.isActive())
            Timer.start(Pace.Most);
    }

    QString Folder, Spare; ///< Spare may be empty
    RecoveryPace Pace;
    std::array<WaitingTab, Slots> Tabs;
    const DocumentText* Code = nullptr;
    QString Macro; ///< that Code belongs to
    QElapsedTimer Clock;
    QTimer Timer;
    int Apart = 0;
    bool FailureTold = false;
    recovery::Worker Worker;
};

Recovery::Recovery(const QString& stateFolder, QObject* parent, RecoveryPace pace, const QString& spareFolder)
    : QObject(parent)
{
    const auto done = [this](const QString& name, const Result<>& written) {
        QMetaObject::invokeMethod(
            this, [this, name, written] { Written(name, written); }, Qt::QueuedConnection);
    };
    d = std::make_unique<Private>(paths::Closed(stateFolder) + QStringLiteral("recovery/"), paths::Closed(spareFolder),
                                  pace, done);
    for (const QString& each : {d->Folder, d->Spare})
        recovery::Sweep(each, QDateTime::currentMSecsSinceEpoch());
    d->Timer.setSingleShot(true);
    connect(&d->Timer, &QTimer::timeout, this, [this] {
        const qint64 now = d->Clock.elapsed();
        qint64 next = Never;
        for (int tab = 0; tab < Slots; ++tab) {
            if (!d->Tabs.at(tab).Waits())
                continue;
            const DocumentText* text = d->TextOf(tab);
            const qint64 due = d->DueAt(tab);
            if (due > now)
                next = next == Never ? due : std::min(next, due);
            else if (text && text->Modified())
                d->KeepTab(tab, false);
            else
                TextSettled(tab);
        }
        if (next != Never)
            d->Timer.start(int(next - now));
    });
}

Recovery::~Recovery() = default;

void Recovery::Written(const QString& name, const Result<>& written)
{
    if (!written)
        d->TryAgain(name);
    if (std::exchange(d->FailureTold, !written.has_value()) == d->FailureTold || !Frame.Host)
        return;
    ShowNotice(written ? QStringLiteral("Unsaved text is kept for recovery again.")
                       : QStringLiteral("Unsaved text can not be kept for recovery: ") + written.error().Reason);
}

void Recovery::SetCode(const DocumentText* code, const QString& macro)
{
    if (code != d->Code)
        d->Tabs.at(CodeTab) = {};
    d->Code = code;
    d->Macro = macro;
}

void Recovery::TextEdited(int tab)
{
    const qint64 now = d->Clock.elapsed();
    WaitingTab& waiting = d->Tabs.at(tab);
    if (waiting.FirstEdit == Never)
        waiting.FirstEdit = now;
    waiting.LastEdit = now;
    if (!d->Timer.isActive())
        d->Timer.start(d->Pace.Quiet);
}

void Recovery::TextSettled(int tab)
{
    if (d->Tabs.at(tab).HasCopy)
        d->Worker.Remove(CopyName(tab));
    d->Tabs.at(tab) = {};
}

Result<> Recovery::KeepApart(int tab)
{
    const QString name = QStringLiteral("apart-%1").arg(++d->Apart);
    d->Keep(tab, name, true);
    return d->Worker.Settled(name);
}

Result<> Recovery::KeepClosed(int tab)
{
    const QString name = recovery::ClosedCopies + QString::number(++d->Apart);
    d->Keep(tab, name, true);
    return d->Worker.Settled(name);
}

Result<> Recovery::KeepAllNow()
{
    for (int tab = 0; tab < Slots; ++tab) {
        if (const DocumentText* text = d->TextOf(tab); text && text->Modified())
            d->KeepTab(tab, true);
        else
            TextSettled(tab);
    }
    WaitForWorker();
    for (int tab = 0; tab < Slots; ++tab)
        if (d->Tabs.at(tab).HasCopy)
            if (const Result<> kept = d->Worker.Settled(CopyName(tab)); !kept)
                return kept;
    return {};
}

void Recovery::WaitForWorker()
{
    d->Worker.Wait();
}

std::vector<RecoveredText> Recovery::FindRecovered() const
{
    std::vector<RecoveredText> all = recovery::CopiesOfEndedRuns(d->Folder);
    for (RecoveredText& text : recovery::CopiesOfEndedRuns(d->Spare))
        all.push_back(std::move(text));
    return all;
}

std::optional<RecoveredText> Recovery::LastClosed() const
{
    std::optional<RecoveredText> last = recovery::LastClosedCopy(d->Folder);
    std::optional<RecoveredText> spare = recovery::LastClosedCopy(d->Spare);
    return spare && (!last || spare->Kept > last->Kept) ? spare : last;
}

void Recovery::Forget(const RecoveredText& text)
{
    recovery::RemoveCopy(text.Folder);
}
