#pragma once

#include "text/document_text.h"
#include "text/line_store.h"
#include "text/search.h"

#include <QList>
#include <functional>

/// Text that goes from one program to another.
class TextClipboard
{
public:
    virtual ~TextClipboard() = default;
    virtual QString Text() const = 0;
    virtual void SetText(const QString& text) = 0;
};

/// A document's text by its lines, for work that changes very many of them one by one: an edit costs the line it
/// stands in. Macros run on it, with a window and without one: found and replaced line by line, 100,000 lines cost 0.03
/// s of the processor here and 4 s on a pane, printed ones a fifth (bench/text_bench.cpp). The same tests hold for both
/// (tests/editor/either_text.h). It behaves as a pane of one font does, with two differences: it keeps no history, and
/// commands that open a dialog do nothing. What has changed since the last look is known, so that a pane can be brought
/// up to date.
class LineText final : public DocumentText
{
public:
    explicit LineText(TextClipboard& ofWhom) : clipboard(ofWhom) {}

    /// A place in the text; columns count UTF-16 units.
    struct Place
    {
        int Line = 0, Column = 0;
        auto operator<=>(const Place&) const = default;
    };

    // What a pane would take from its looks
    void SetTabSize(int size) { tabSize = qMax(size, 1); }
    void SetPageLines(int count) { pageLines = qMax(count, 1); } ///< how far a page goes

    /// Asked now and then while one operation goes over a huge text. False ends it: a search finds nothing then, a
    /// replacement changes nothing.
    void SetTurn(std::function<bool()> give) { turn = std::move(give); }

    /// Becomes a copy of another text: its bytes, selection, encoding and search.
    void CopyFrom(const DocumentText& other);
    /// Brings the text that was copied from up to date with what has changed since then or since the last call. That
    /// text must not have changed otherwise. Costs the stretch from the first line changed to the last.
    void WriteChangesTo(DocumentText& other);

    QString Text() const override;
    void SetText(const QString& wanted) override;
    int LineCount() const override { return blank ? 0 : lines.Count(); }
    QString GetLine(int line) const override;
    int GetLineLength(int line) const override;
    QByteArrayView Bytes() const override;
    QByteArrayView Bytes(int first, int last) const override;
    qsizetype LineStart(int line) const override;
    void ReplaceLines(int first, int last, QByteArrayView bytes) override;
    void InsertText(const QString& wanted, const Range& at) override;
    void AddText(const QString& wanted) override;
    void InsertLine(int line, const QString& wanted) override;
    void DeleteLine(int line) override;

    Range GetSel(bool normalised) const override;
    bool SetSel(const Range& range, bool makeVisible) override;
    int CaretLine() const override { return caret.Line; }
    int CaretColumn() const override { return columns ? Clamped(caret.Line, caret.Column).Column : caret.Column; }
    QString SelText() const override;
    void SetSelText(const QString& wanted) override;
    int SelLength() const override;
    void ReplaceSel(const QString& wanted) override;
    void SelectLine(int line, bool makeVisible) override;
    QString CurrentWord() const override;

    Result<> OpenFile(const QString& path) override;
    Result<> SaveFile(const QString& path, bool flag, const std::function<Result<>()>& before = {}) override;
    Result<> InsertFile(const QString& path, const Range& at) override;
    void LoadBytes(const QByteArray& bytes) override;
    QByteArray FileBytes() const override;
    FileEncoding Encoding() const override { return encoding; }
    void SetEncoding(FileEncoding wanted) override { encoding = wanted; }
    bool FitsEncoding() const override;
    LineBreak LineEnd() const override { return lineEnd; }
    void SetLineEnd(LineBreak wanted) override { lineEnd = wanted; }

    bool ExecuteCmd(int number, const QVariant& argument = {}) override;
    int Repeat(int number, int count) override;
    bool Overtype() const override { return overtype; }
    void SetOvertype(bool on) override { overtype = on; }
    void ClearUndoBuffer() override {}
    void SetUndoLimit(int) override {}
    bool CanUndo() const override { return false; }
    bool CanRedo() const override { return false; }
    bool UndoGroupOpen() const override { return groups > 0; }
    bool Modified() const override { return modified; }
    void SetModified(bool wanted) override;

    void SetFindText(const QString& wanted) override { findText = wanted; }
    QString FindText() const override { return findText; }
    void SetReplaceText(const QString& wanted) override { replaceText = wanted; }
    QString ReplaceText() const override { return replaceText; }
    void SetFindOptions(const FindOptions& options) override { findOptions = options; }
    FindOptions CurrentFindOptions() const override { return findOptions; }
    bool FindPlain(const QString& wanted, bool forward) override;
    bool ReplaceFound() override;
    int LastReplaceCount() const override { return replaceCount; }
    QString FindError() const override { return findError; }

    void BeginBatch() override { ++batches; }
    void EndBatch() override;

private:
    using Command = bool (LineText::*)(const QVariant&);
    struct CommandTable;
    static const CommandTable Commands;

    /// A stretch of the text, first place in front.
    struct Stretch
    {
        Place Start, End;
    };

    // Text
    bool IsLine(int line) const { return line >= 0 && line < lines.Count(); }
    int LastLine() const { return lines.Count() - 1; }
    Place EndPlace() const { return {LastLine(), int(lines.Units(LastLine()))}; }
    Place Clamped(int line, int column) const; ///< the nearest place there is, on a whole character
    QString TextOf(const Stretch& stretch, QLatin1StringView lineBreak) const;
    Place Edit(const Stretch& stretch, QStringView wanted); ///< gives back the end of what was written
    Place EditInLine(const Stretch& stretch, QStringView wanted);
    Place EditLines(const Stretch& stretch, QStringView wanted);
    Place BreakLineAt(const Stretch& stretch, QStringView wanted);
    void ShiftSelection(const Stretch& stretch, Place end);
    void LoadWhole(const QByteArray& utf8);
    void Touched(int first, int last); ///< before lines change, by their numbers then
    void Told();                       ///< tells what changed, once the outermost piece of work is done

    // Selection
    bool HasSelection() const { return columns || anchor != caret; }
    Stretch Selected() const;
    QList<Stretch> SelectedPieces() const;
    Place WriteOverSelection(QStringView wanted, Place& start);
    void MoveTo(Place place, bool extend);
    void Select(Place from, Place to);

    // Moves
    Place Before(Place place) const;
    Place Behind(Place place) const;
    Place NextWord(Place from) const;
    Place PreviousWord(Place from) const;
    Stretch WordAt(Place place) const;
    Place Vertical(int distance);
    int ShownColumn(Place place) const; ///< tabs spread out
    Place PlaceAt(int line, int shownColumn) const;
    bool IsWhite(int line) const;

    template <bool Extend>
    bool CharRight(const QVariant&);
    template <bool Extend>
    bool CharLeft(const QVariant&);
    template <bool Extend>
    bool WordRight(const QVariant&);
    template <bool Extend>
    bool WordLeft(const QVariant&);
    template <bool Extend>
    bool LineUp(const QVariant&);
    template <bool Extend>
    bool LineDown(const QVariant&);
    template <bool Extend>
    bool PageUp(const QVariant&);
    template <bool Extend>
    bool PageDown(const QVariant&);
    template <bool Extend>
    bool ToLineStart(const QVariant&);
    template <bool Extend>
    bool ToLineEnd(const QVariant&);
    template <bool Extend>
    bool ToDocumentStart(const QVariant&);
    template <bool Extend>
    bool ToDocumentEnd(const QVariant&);
    bool ParagraphUp(const QVariant&);
    bool ParagraphDown(const QVariant&);
    bool GotoLine(const QVariant& argument);
    bool SelectCaretLine(const QVariant&);
    bool SelectAll(const QVariant&);
    bool ClearSelection(const QVariant&);
    bool BehindSelection(const QVariant&);

    // Edits
    bool DeleteLeft(const QVariant&);
    bool DeleteRight(const QVariant&);
    bool DeleteToLineStart(const QVariant&);
    bool DeleteToLineEnd(const QVariant&);
    bool DeleteCaretLine(const QVariant&);
    bool OpenLineBelow(const QVariant&);
    bool OpenLineAbove(const QVariant&);
    bool BreakLine(const QVariant&);
    bool SwapChars(const QVariant&);
    bool SwapWords(const QVariant&);
    bool Cut(const QVariant&);
    bool CutAppend(const QVariant&);
    bool CutLine(const QVariant&);
    bool Copy(const QVariant&);
    bool Paste(const QVariant&);
    void PasteColumns(const QString& pasted);
    bool OpenGroup(const QVariant&);
    bool CloseGroup(const QVariant&);

    // Search
    struct Window;
    Window Look(int first, int last) const;
    bool FindFrom(const Search& search, bool forward, bool wrap);
    std::optional<Stretch> Ahead(const Search& search, Place from) const;
    std::optional<Stretch> Back(const Search& search, Place before) const;
    Search StartSearch();
    bool TakeFindText(const QVariant& argument);
    bool TakeReplaceText(const QVariant& argument);
    bool FindNext(const QVariant&);
    bool FindPrevious(const QVariant&);
    bool ReplaceAllInDocument(const QVariant&);
    bool ReplaceAllInSelection(const QVariant&);

    bool Stopped() const { return turn && !turn(); }
    Replaced ReplaceInPieces(const Search& search, QByteArrayView bytes) const;

    TextClipboard& clipboard;
    std::function<bool()> turn;
    LineStore lines;
    Place anchor, caret;
    bool columns = false;  ///< anchor and caret are corners, which may lie behind the ends of their lines
    bool emptied = false;  ///< the columns were deleted: one place a line is left, which counts as no rectangle
    int goal = -1;         ///< shown column that vertical moves aim at; -1: the caret's
    QString columnsCopied; ///< the clipboard's text if it was copied as columns

    FileEncoding encoding = FileEncoding::Utf8;
    LineBreak lineEnd = LineBreak::CrLf;
    bool blank = true, modified = false, overtype = false;
    int tabSize = 8, pageLines = 20, groups = 0, batches = 0;

    quint64 edits = 0;
    bool changed = false;            ///< since it was copied or written
    int sameFront = 0, sameBack = 0; ///< lines at both ends that are as they were then
    mutable QByteArray whole;        ///< where bytes that were asked for are put together
    struct
    {
        quint64 Edits = 0;
        Place Anchor, Caret;
        bool Modified = false;
    } told;

    QString findText, replaceText, findError;
    FindOptions findOptions;
    int replaceCount = 0;
};
