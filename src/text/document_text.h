#pragma once

#include "platform/result.h"
#include "text/command_numbers.h"
#include "text/encoding.h"
#include "text/places.h"
#include "text/search_options.h"
#include "text/text_form.h"

#include <QByteArrayView>
#include <QObject>
#include <QString>
#include <QVariant>
#include <functional>

/// A document's text as every tool sees it: bytes, lines, selection, undo groups, search, numbered commands, files. It
/// needs no view; EditorPane adds what a person sees. Callers of Text and SelText see CR LF whatever the file has;
/// Bytes is UTF-8 with the document's own line ends.
class DocumentText : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // Text
    virtual QString Text() const = 0;
    virtual void SetText(const QString& text) = 0; ///< undoable; "" makes the buffer blank (LineCount 0); encoding and
                                                   ///< line end stay
    virtual int LineCount() const = 0;
    virtual QString GetLine(int line) const = 0; ///< without its line end; "" outside
    virtual int GetLineLength(int line) const = 0;
    virtual QByteArrayView Bytes() const = 0; ///< valid until the next edit; costs as much as the text
    virtual QByteArrayView Bytes(int first, int last) const = 0; ///< of some lines, with their ends
    virtual qsizetype LineStart(int line) const = 0;
    /// Replaces lines first..last (whole, without the last one's line end) by UTF-8 bytes with the document's own
    /// line ends: the fast way to write a pass, one undo step, only the smallest changed range is touched.
    virtual void ReplaceLines(int first, int last, QByteArrayView bytes) = 0;
    virtual void InsertText(const QString& text, const Range& at) = 0;
    virtual void AddText(const QString& text) = 0;
    virtual void InsertLine(int line, const QString& text) = 0;
    virtual void DeleteLine(int line) = 0;

    // Selection
    virtual Range GetSel(bool normalised) const = 0;
    virtual bool SetSel(const Range& range, bool makeVisible) = 0; ///< columns clamp; false for a line outside
    virtual int CaretLine() const = 0;
    virtual int CaretColumn() const = 0; ///< both cost the caret's line, whatever is selected
    virtual QString SelText() const = 0;
    virtual void SetSelText(const QString& text) = 0; ///< stays selected, caret at its end
    virtual int SelLength() const = 0;                ///< a line break counts 2
    virtual void ReplaceSel(const QString& text) = 0;
    virtual void SelectLine(int line, bool makeVisible) = 0; ///< without the line end
    virtual QString CurrentWord() const = 0;                 ///< letters, digits, "_", codes from 128
    int CurrentWordLength() const { return int(CurrentWord().size()); }

    // Files
    /// A file that cannot be read changes nothing; one that fails half-way costs the undo history.
    [[nodiscard]] virtual Result<> OpenFile(const QString& path) = 0;
    /// `before` runs when the new bytes lie safely beside the file, see paths::WriteWhole.
    [[nodiscard]] virtual Result<> SaveFile(const QString& path, bool flag,
                                            const std::function<Result<>()>& before = {}) = 0;
    [[nodiscard]] virtual Result<> InsertFile(const QString& path, const Range& at) = 0;
    /// As OpenFile does with a file's bytes. Inside an undo group both are edits of the group, which undo brings back.
    virtual void LoadBytes(const QByteArray& bytes) = 0;
    virtual QByteArray FileBytes() const = 0; ///< what SaveFile would write; UTF-8 if the text does not fit
    virtual FileEncoding Encoding() const = 0;
    virtual void SetEncoding(FileEncoding encoding) = 0;
    virtual bool FitsEncoding() const = 0; ///< false: a character that Windows-1252 cannot hold
    virtual LineBreak LineEnd() const = 0; ///< what inserted lines take
    virtual void SetLineEnd(LineBreak lineEnd) = 0;

    // Commands and undo
    virtual bool ExecuteCmd(int number, const QVariant& argument = {}) = 0; ///< false: unknown or refused
    /// Runs a numbered command `count` times at most; how often it went before it was refused. What a long repeat
    /// changes is told once, so callers that must let events run ask for slices.
    virtual int Repeat(int number, int count) = 0;
    virtual bool Overtype() const = 0; ///< typing and printing replace what stands after the caret
    virtual void SetOvertype(bool on) = 0;
    virtual void ClearUndoBuffer() = 0;
    virtual void SetUndoLimit(int limit) = 0; ///< -1 unlimited, 0 none, n steps back
    virtual bool CanUndo() const = 0;
    virtual bool CanRedo() const = 0;
    virtual bool UndoGroupOpen() const = 0;
    virtual bool Modified() const = 0;
    virtual void SetModified(bool modified) = 0;

    // Search
    virtual void SetFindText(const QString& text) = 0;
    virtual QString FindText() const = 0;
    virtual void SetReplaceText(const QString& text) = 0;
    virtual QString ReplaceText() const = 0;
    virtual void SetFindOptions(const FindOptions& options) = 0;
    virtual FindOptions CurrentFindOptions() const = 0;
    virtual bool FindPlain(const QString& text, bool forward) = 0; ///< case-blind, no options, no history, no wrap
    virtual bool ReplaceFound() = 0; ///< replaces the selection if it is a hit, then finds the next; false: no hit
    virtual int LastReplaceCount() const = 0;
    /// Why the last search found nothing although it should have run (a broken regular expression); empty if it ran.
    virtual QString FindError() const = 0;

    /// Bulk edits between the two tell their change once, at the end. Nests. Use EditBatch.
    virtual void BeginBatch() = 0;
    virtual void EndBatch() = 0;

signals:
    void SelectionChanged();
    void TextChanged();
    void ModifiedChanged(bool modified);
};

/// One undo step from construction to Close or the end of the scope; closes once.
class UndoGroup
{
public:
    explicit UndoGroup(DocumentText& text);
    ~UndoGroup();
    UndoGroup(const UndoGroup&) = delete;
    UndoGroup& operator=(const UndoGroup&) = delete;
    void Close();

private:
    DocumentText* text;
};

/// Redraw and notifications of a text off for many edits.
class EditBatch
{
public:
    explicit EditBatch(DocumentText& text);
    ~EditBatch();
    EditBatch(const EditBatch&) = delete;
    EditBatch& operator=(const EditBatch&) = delete;

private:
    DocumentText& text;
};
