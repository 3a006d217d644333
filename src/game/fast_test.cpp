#include "game/fast_test.h"

#include "frame/editor_pane.h"
#include "frame/files/put_back.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "game/launcher.h"
#include "platform/files/paths.h"

#include <QFileInfo>
#include <QRandomGenerator>

namespace {

constexpr int HeaderLines = 21;
constexpr int LeastHeaders = 2;

/// The selection as whole lines. A line that is only touched at its start has nothing selected.
void WidenToLines(DocumentText& pane)
{
    const Range selection = pane.GetSel(true);
    const bool touches = selection.EndLine > selection.StartLine && selection.EndCol == 0;
    pane.SetSel({selection.StartLine, 0, selection.EndLine - touches, LineEndColumn}, false);
}

/// Header lines of a document in front of the text in `buffer`, the last found first; how many there were.
int AddHeader(const DocumentText& document, DocumentText& buffer)
{
    int count = 0;
    for (int line = 0; line < qMin(HeaderLines, document.LineCount()); ++line) {
        const QString text = document.GetLine(line);
        if (!text.startsWith(QLatin1StringView("name:")) && !text.startsWith(QLatin1StringView("sort_priority:")))
            continue;
        buffer.InsertLine(0, text);
        ++count;
    }
    return count;
}

QString FiveLetters()
{
    QString letters;
    for (int i = 0; i < 5; ++i)
        letters += QChar(u'A' + QRandomGenerator::global()->bounded(20));
    return letters;
}

/// A name for the conf meanwhile, drawn until it is free.
QString KeptName(const QString& file)
{
    for (;;) {
        QString name = paths::FileNameOfPath(file) + FiveLetters();
        const QFileInfo there(paths::FolderOfPath(file) + name);
        if (!there.exists() && !there.isSymLink())
            return name;
    }
}

std::vector<name_swap::FolderMove> SilencedFolders()
{
    const QString root = RootOfGraphics(Frame.CurrentFolder);
    if (Frame.Settings.DisableSoundLaunch != 1 || root.isEmpty())
        return {};
    return {{root + QStringLiteral("sounds"), root + QStringLiteral("_gfg_sounds")},
            {root + QStringLiteral("music"), root + QStringLiteral("_gfg_music")}};
}

/// The conf of header and block as bytes of a file.
QByteArray SmallConf(const DocumentText& pane, DocumentText& buffer)
{
    buffer.SetEncoding(pane.Encoding());
    buffer.SetLineEnd(pane.LineEnd());
    return buffer.FileBytes();
}

void CaretToLineStart(DocumentText& pane)
{
    const int line = pane.CaretLine();
    pane.SetSel({line, 0, line, 0}, true);
}

} // namespace

QString RootOfGraphics(const QString& folder)
{
    const qsizetype at = folder.lastIndexOf(QLatin1StringView("/graphics/"), -1, Qt::CaseInsensitive);
    return at < 0 ? QString() : folder.left(at + 1);
}

void FastLaunch()
{
    if (!IsRndPathSet())
        return;
    EditorPane& pane = CurrentPane();
    if (pane.SelText().isEmpty()) {
        ShowMessage(message::NoBlockSelected);
        return;
    }
    if (!HasFile(Frame.Documents.at(Frame.CurrentTab))) {
        ShowMessage(message::LaunchNeedsSave);
        return;
    }
    WidenToLines(pane);
    EditorPane& buffer = Panes().txtBuffer();
    buffer.SetText(pane.SelText());
    if (AddHeader(pane, buffer) < LeastHeaders) {
        ShowMessage(message::NoConfHeader);
        return;
    }

    PutBackIn(Frame.CurrentFolder);
    const QString file = Frame.CurrentFolder + Frame.CurrentFile;
    auto swap = name_swap::Begin({file, KeptName(file), SmallConf(pane, buffer), SilencedFolders()});
    if (!swap) {
        ShowFailure(swap.error());
        return;
    }
    LaunchGame(0, false);
    TellEndOfSwap(swap->End());
    Panes().FocusPane();
    CaretToLineStart(pane);
}
