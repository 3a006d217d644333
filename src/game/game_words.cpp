#include "game/game_words.h"

#include "frame/editor_pane.h"
#include "frame/files/file_commands.h"
#include "frame/files/tab_commands.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "game/game_state.h"
#include "platform/files/paths.h"
#include "text/encoding.h"

#include <QFileInfo>
#include <algorithm>

namespace {

QString PlaceText(const GameFinding& finding)
{
    return finding.File + u'\n' + finding.Key + u'\n' + finding.Picture + u'\n' + finding.Text;
}

/// Brings a file in front of the user; false if that cannot be done.
bool ShowFile(const QString& path)
{
    if (!QFileInfo(path).isFile()) {
        ShowNotice(QStringLiteral("This file is not there: ") + paths::Native(path));
        return false;
    }
    const int before = Frame.CurrentTab;
    if (const int holder = TabWithFile(path); holder >= 0) {
        if (holder != before) {
            Panes().SelectTab(holder);
            ActivateTab();
        }
        return true;
    }
    if (HasFile(Frame.Documents.at(before)) || CurrentPane().Modified()) {
        OpenNewTab();
        ActivateTab();
        if (Frame.CurrentTab == before) {
            ShowNotice(QStringLiteral("All tabs are in use. Close one to see the line."));
            return false;
        }
    }
    return OpenDocument(path, false);
}

/// The line of a row. The game tells what is wrong with a key for all that it derives from it too, which stands in no
/// line: such a row leads to the key's own.
int LineMeant(const PlacedFinding& word)
{
    const GameWords& all = Words();
    for (int row = 0; word.Line < 0 && row < all.rowCount(); ++row) {
        const PlacedFinding& other = *all.At(row);
        if (other.Line >= 0 && other.Finding.File == word.Finding.File &&
            other.Finding.Picture == word.Finding.Picture && other.Finding.Text == word.Finding.Text)
            return other.Line;
    }
    return word.Line;
}

} // namespace

void GameWords::BeginRun()
{
    before.clear();
    for (const PlacedFinding& row : rows)
        before << PlaceText(row.Finding);
}

void GameWords::Show(std::vector<PlacedFinding> now, const QString& folder)
{
    int fresh = 0;
    for (const PlacedFinding& row : now)
        fresh += !before.contains(PlaceText(row.Finding));
    beginResetModel();
    rows = std::move(now);
    setFolder = folder;
    endResetModel();
    emit Spoken(int(rows.size()), fresh);
}

const PlacedFinding* GameWords::At(int row) const
{
    return row >= 0 && row < int(rows.size()) ? &rows.at(size_t(row)) : nullptr;
}

int GameWords::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(rows.size());
}

int GameWords::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant GameWords::data(const QModelIndex& index, int role) const
{
    const PlacedFinding* row = At(index.row());
    if (row && role == Qt::AccessibleDescriptionRole && index.column() == KeyColumn)
        return row->Finding.Severity == GameSeverity::Warning ? QStringLiteral("warning") : QStringLiteral("error");
    if (!row || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const auto shown = [&](const QString& path) {
        if (role == Qt::ToolTipRole)
            return paths::Native(path);
        const bool inSet = !setFolder.isEmpty() && path.startsWith(setFolder);
        return inSet ? path.mid(setFolder.size()) : paths::FileNameOfPath(path);
    };
    switch (index.column()) {
    case KeyColumn:
        return row->Finding.Key;
    case FileColumn: {
        const QString file = shown(row->Finding.File);
        return row->Line < 0 ? file : file + QStringLiteral(":%1").arg(row->Line + 1);
    }
    case PictureColumn:
        return shown(row->Finding.Picture);
    case TextColumn:
        return row->Finding.Text;
    default:
        return {};
    }
}

QVariant GameWords::headerData(int section, Qt::Orientation orientation, int role) const
{
    static constexpr const char* Titles[] = {"Key", "File", "Picture or sound", "What is wrong"};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
        return {};
    return QString::fromLatin1(Titles[section]);
}

QString CountOf(size_t things)
{
    return things == 1 ? QStringLiteral("1 thing") : QStringLiteral("%1 things").arg(things);
}

QByteArray AuthorsText(const QString& path)
{
    if (const int tab = TabWithFile(path); tab >= 0)
        return Panes().Pane(tab).Bytes().toByteArray();
    const auto bytes = paths::ReadWhole(path, paths::LargestDocument);
    return bytes ? FromFile(*bytes, EncodingOf(*bytes)) : QByteArray();
}

void ShowGameWords(std::vector<GameFinding> findings, const QString& setFolder,
                   const std::function<void(GameFinding&)>& leadBack)
{
    if (leadBack)
        std::for_each(findings.begin(), findings.end(), leadBack);
    Words().Show(PlaceFindings(std::move(findings), setFolder, AuthorsText), setFolder);
}

void GoToGameWord(int row)
{
    const PlacedFinding* word = Words().At(row);
    if (!word)
        return;
    if (word->Finding.File.isEmpty()) {
        ShowNotice(QStringLiteral("The game does not tell which file it means."));
        return;
    }
    const QString path = word->Finding.File;
    const int line = LineMeant(*word);
    if (path.endsWith(QLatin1String(".level"), Qt::CaseInsensitive)) {
        ShowNotice(QStringLiteral("The game means this level: ") + paths::Native(path));
        return;
    }
    if (!ShowFile(path))
        return;
    if (line >= 0)
        CurrentPane().ExecuteCmd(CmdGotoLine, line);
    else
        ShowNotice(QStringLiteral("The game does not tell which line it means."));
    Panes().FocusPane();
}
