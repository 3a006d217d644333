#include "editor/pane.h"
#include "platform/files/paths.h"
#include "text/encoding.h"

#include <Qsci/qsciscintilla.h>

using Sci = QsciScintillaBase;

namespace {

constexpr qsizetype RoomToType = qsizetype(64) * 1024; // without any the component takes twice the text's size at once

} // namespace

/// Fills the pane piece by piece: beside text and styles a large file would be in memory a third time. What stood in
/// the pane before comes back if the file stops being readable half-way.
class ScintillaPane::FileTaker : public paths::PieceTaker
{
public:
    explicit FileTaker(ScintillaPane& owner) : pane(owner) {}
    void Begin(qint64 sizeHint) override
    {
        before = pane.Bytes().toByteArray();
        selection = pane.text.Selection();
        wasModified = pane.Modified();
        begun = true;
        pane.BeginWholeText(qsizetype(sizeHint));
    }
    void Take(QByteArrayView piece) override { pane.text.Send(Sci::SCI_ADDTEXT, piece.size(), piece.data()); }
    void PutBack()
    {
        if (!begun)
            return;
        pane.SetWholeText(before);
        pane.text.Select(selection.Anchor, selection.Caret);
        pane.SetModified(wasModified);
    }

private:
    ScintillaPane& pane;
    QByteArray before;
    RawSelection selection;
    bool wasModified = false, begun = false;
};

Result<> ScintillaPane::OpenFile(const QString& path)
{
    if (groups > 0) // its undo brings the old text back
        return paths::ReadWhole(path, paths::LargestDocument).map([this](const QByteArray& file) { LoadBytes(file); });
    const Work work(*this);
    FileTaker taker(*this);
    Result<> read = paths::ReadPieces(path, paths::LargestDocument, taker);
    if (!read) {
        taker.PutBack();
        return read;
    }
    EndWholeText();
    SetEncoding(EncodingOf(Bytes()));
    if (encoding != FileEncoding::Utf8)
        SetWholeText(FromFile(Bytes(), encoding));
    ShowLoaded();
    return {};
}

Result<> ScintillaPane::SaveFile(const QString& path, bool, const std::function<Result<>()>& before)
{
    if (!FitsEncoding())
        return Fail(path, QStringLiteral("The text has characters that Windows-1252 cannot hold."));
    const bool plain = encoding == FileEncoding::Utf8;
    const QByteArray file = plain ? QByteArray() : FileBytes();
    return paths::WriteWhole(path, plain ? Bytes() : QByteArrayView(file), before).map([this] { SetModified(false); });
}

Result<> ScintillaPane::InsertFile(const QString& path, const Range& at)
{
    return paths::ReadWhole(path, paths::LargestDocument).map([&](const QByteArray& file) {
        const Work work(*this);
        const qsizetype start = PositionOf(at.StartLine, at.StartCol);
        Write(start, start, WithBreaks(FromFile(file, EncodingOf(file)), lineEnd));
    });
}

void ScintillaPane::LoadBytes(const QByteArray& bytes)
{
    const Work work(*this);
    SetEncoding(EncodingOf(bytes));
    SetWholeText(encoding == FileEncoding::Utf8 ? bytes : FromFile(bytes, encoding));
    ShowLoaded();
}

void ScintillaPane::ShowLoaded()
{
    SetLineEnd(DominantBreak(Bytes(), LineBreak::CrLf));
    blank = Bytes().isEmpty();
    text.Select(0, 0);
    text.Send(Sci::SCI_SETFIRSTVISIBLELINE, 0L);
    text.Send(Sci::SCI_SETXOFFSET, 0L);
    SetModified(false);
}

/// Without a history, which would hold the text twice; inside an undo group the old text must come back.
void ScintillaPane::SetWholeText(QByteArrayView bytes)
{
    if (groups > 0) {
        colouring.Reset();
        text.Replace(0, text.Length(), bytes);
        return;
    }
    BeginWholeText(bytes.size());
    text.Send(Sci::SCI_ADDTEXT, bytes.size(), bytes.isEmpty() ? "" : bytes.data());
    EndWholeText();
}

void ScintillaPane::BeginWholeText(qsizetype size)
{
    colouring.Reset();
    text.Send(Sci::SCI_SETUNDOCOLLECTION, 0L);
    text.Send(Sci::SCI_CLEARALL);
    text.Send(Sci::SCI_ALLOCATE, size + RoomToType);
}

void ScintillaPane::EndWholeText()
{
    colouring.AfterEdit();
    text.Send(Sci::SCI_SETUNDOCOLLECTION, undoLimit != 0);
    text.Send(Sci::SCI_EMPTYUNDOBUFFER);
    groupSelections.clear();
    text.Send(Sci::SCI_SETSCROLLWIDTH, 1);
    ++edits;
}

/// A text that does not fit its encoding comes as UTF-8: whoever keeps these bytes loses nothing.
QByteArray ScintillaPane::FileBytes() const
{
    return ToFile(Bytes(), encoding).value_or(Bytes().toByteArray());
}

bool ScintillaPane::FitsEncoding() const
{
    return encoding != FileEncoding::Windows1252 || ToFile(Bytes(), encoding).has_value();
}
