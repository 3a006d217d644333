#include "editor/encoding.h"
#include "editor/pane.h"
#include "platform/paths.h"

#include <Qsci/qsciscintilla.h>

using Sci = QsciScintillaBase;

namespace {

constexpr qsizetype RoomToType = qsizetype(64) * 1024; // without any the component takes twice the text's size at once

} // namespace

Result<> ScintillaPane::OpenFile(const QString& path)
{
    return paths::ReadWhole(path, paths::LargestDocument).map([this](const QByteArray& bytes) { LoadBytes(bytes); });
}

Result<> ScintillaPane::SaveFile(const QString& path, bool)
{
    if (!FitsEncoding())
        return Fail(path, QStringLiteral("The text has characters that Windows-1252 cannot hold."));
    const bool plain = encoding == FileEncoding::Utf8;
    const QByteArray file = plain ? QByteArray() : FileBytes();
    return paths::WriteWhole(path, plain ? Bytes() : QByteArrayView(file)).map([this] { SetModified(false); });
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
    const QByteArray loaded = encoding == FileEncoding::Utf8 ? bytes : FromFile(bytes, encoding);
    SetLineEnd(DominantBreak(loaded, LineBreak::CrLf));
    SetWholeText(loaded);
    blank = loaded.isEmpty();
    text.Select(0, 0);
    text.Send(Sci::SCI_SETFIRSTVISIBLELINE, 0L);
    text.Send(Sci::SCI_SETXOFFSET, 0L);
    SetModified(false);
}

/// Without a history, which would hold the text twice; inside an undo group the old text must come back.
void ScintillaPane::SetWholeText(QByteArrayView bytes)
{
    colouring.Reset();
    if (groups > 0) {
        text.Replace(0, text.Length(), bytes);
        return;
    }
    text.Send(Sci::SCI_SETUNDOCOLLECTION, 0L);
    text.Send(Sci::SCI_CLEARALL);
    text.Send(Sci::SCI_ALLOCATE, bytes.size() + RoomToType);
    text.Send(Sci::SCI_ADDTEXT, bytes.size(), bytes.isEmpty() ? "" : bytes.data());
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
