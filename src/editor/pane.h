#pragma once

#include "editor/code_list.h"
#include "editor/colouring.h"
#include "editor/drop_place.h"
#include "editor/looks.h"
#include "editor/margin_marks.h"
#include "text/search.h"

#include <optional>
#include <vector>

class QDropEvent;
class QHelpEvent;
class QKeyEvent;
class QMouseEvent;
class RunScope;

/// The one implementation of EditorPane. Its parts stand in several files: texts, selection, files, search, undo,
/// commands, keys.
class ScintillaPane final : public EditorPane
{
public:
    explicit ScintillaPane(QWidget* parent);

    QsciScintilla* Widget() const { return text.Widget(); }
    static bool HasKey(int key); ///< with its modifiers

    QString Text() const override;
    void SetText(const QString& wanted) override;
    int LineCount() const override;
    QString GetLine(int line) const override;
    int GetLineLength(int line) const override;
    QByteArrayView Bytes() const override { return text.All(); }
    QByteArrayView Bytes(int first, int last) const override;
    qsizetype LineStart(int line) const override;
    void ReplaceLines(int first, int last, QByteArrayView bytes) override;
    void InsertText(const QString& wanted, const Range& at) override;
    void AddText(const QString& wanted) override;
    void InsertLine(int line, const QString& wanted) override;
    void DeleteLine(int line) override;

    Range GetSel(bool normalised) const override;
    bool SetSel(const Range& range, bool makeVisible) override;
    int CaretLine() const override { return text.LineOf(Caret()); }
    int CaretColumn() const override { return text.ColumnOf(Caret()); }
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
    void SetLineEnd(LineBreak wanted) override;

    bool ExecuteCmd(int number, const QVariant& argument) override;
    int Repeat(int number, int count) override;
    bool Overtype() const override;
    void ClearUndoBuffer() override;
    void SetUndoLimit(int limit) override;
    bool CanUndo() const override;
    bool CanRedo() const override;
    bool UndoGroupOpen() const override { return groups > 0; }
    bool Modified() const override;
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

    QString Language() const override { return colouring.Language(); }
    void SetLanguage(const QString& name) override { colouring.SetLanguage(name); }
    void SetColor(int slot, int bgr) override { looks.SetColor(slot, bgr); }
    int GetColor(int slot) const override { return looks.GetColor(slot); }
    void SetFontStyle(int slot, int style) override { looks.SetFontStyle(slot, style); }
    int GetFontStyle(int slot) const override { return looks.GetFontStyle(slot); }
    void SetPaneFont(const QString& name, double points) override { looks.SetFont(name, points); }
    QString FontName() const override { return looks.FontName(); }
    double FontSize() const override { return looks.FontSize(); }
    void SetTabSize(int columns) override;
    void SetColorSyntax(bool on) override { colouring.SetOn(on); }
    void SetDisplayWhitespace(bool on) override { looks.SetDisplayWhitespace(on); }
    void SetLineNumbering(bool on) override { looks.SetLineNumbering(on); }
    void SetHighlightedLine(int line) override { looks.SetHighlightedLine(line); }
    void MarkBlock(int first, int last) override;
    void ShowLineMarks(bool on) override;
    void SetLineMarks(std::vector<LineMark> wanted) override;
    void SetStops(std::vector<LineMark> wanted) override;
    std::vector<LineMark> Stops() const override;
    void SetReadOnly(bool on) override;
    LineSpan VisibleLines() const override;
    bool Visible() const override;
    void SetVisible(bool wanted) override;
    void LockRedraw(bool locked) override;
    void PrintStyled(const QString& wanted, int fore, int back) override;
    void FocusPane() override;
    void SetOvertype(bool on) override;

    void BeginBatch() override;
    void EndBatch() override;
    bool CodeListOpen() const override { return codeList.IsOpen(); }
    void CloseCodeList() override { codeList.Close(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Changes made while one lives are told when the outermost ends.
    class Work
    {
    public:
        explicit Work(ScintillaPane& owner) : pane(owner) { ++pane.working; }
        ~Work()
        {
            if (--pane.working == 0)
                pane.Settle();
        }
        Work(const Work&) = delete;
        Work& operator=(const Work&) = delete;

    private:
        ScintillaPane& pane;
    };
    /// One numbered command as it is told. Made in front of the work, so that its end is told behind the changes.
    class Deed
    {
    public:
        Deed(ScintillaPane& owner, int told) : pane(owner), number(owner.working == 0 ? told : 0)
        {
            if (number)
                emit pane.CommandBegins(number);
        }
        ~Deed()
        {
            if (number)
                emit pane.CommandDone(number);
        }
        Deed(const Deed&) = delete;
        Deed& operator=(const Deed&) = delete;

    private:
        ScintillaPane& pane;
        const int number;
    };
    struct CommandRow;
    static const CommandRow CommandRows[];
    struct KeyRow;
    static const KeyRow KeyRows[];

    /// Before the component takes out the selection, or the character beside the caret.
    void UnlockSelection();

    // Events
    void ConnectComponent();
    void BeforeChange(int position, int kind, int length);
    void Settle();
    void SettleSoon();
    bool ViewportEvent(QEvent* event);
    bool WidgetEvent(QEvent* event);
    bool TakeFiles(QDropEvent& event);
    bool ShowHover(const QHelpEvent& event);
    void BeforePaint(const QRegion& region);
    bool ContextMenu(QEvent* event);
    bool MousePress(QMouseEvent& event);
    bool PressBesideText(const QMouseEvent& event);
    void PutCaretAt(QPoint place, bool always);
    void ClearComponentKeys();
    bool ClaimKey(QKeyEvent& event);
    bool KeyPressed(QKeyEvent& event);
    void RunKey(const KeyRow& row);
    void BreakTypedLine();
    const KeyRow* RowFor(const QKeyEvent& event) const;

    // Text and selection
    QByteArray FromCaller(const QString& wanted) const { return FromText(wanted, lineEnd); }
    qsizetype PositionOf(int line, int column) const;
    bool IsLine(int line) const { return line >= 0 && line < text.Lines(); }
    void Write(qsizetype start, qsizetype end, QByteArrayView bytes);
    Span WriteOverSelection(QByteArrayView bytes);
    void SelectColumns(const Range& range);
    void SetWholeText(QByteArrayView bytes);
    void BeginWholeText(qsizetype size); ///< empties the text and makes room; not inside an undo group
    void EndWholeText();
    void ShowLoaded();
    class FileTaker;
    void ForgetHistory();
    void RecallSelection(int group, bool undone);
    void ShowRecalled();
    int FirstLine() const;
    qsizetype Caret() const { return text.Selection().Caret; }
    qsizetype Anchor() const { return text.Selection().Anchor; }
    void MoveCaret(qsizetype to, bool extend);
    void ShowCaret(); ///< later, while nothing is drawn

    // Commands; each gives false when it has nothing to do
    bool Undo(const QVariant&);
    bool Redo(const QVariant&);
    bool OpenGroup(const QVariant&);
    bool CloseGroup(const QVariant&);
    bool WordRight(const QVariant&);
    bool WordRightExtend(const QVariant&);
    bool WordLeft(const QVariant&);
    bool WordLeftExtend(const QVariant&);
    bool SwapWords(const QVariant&);
    bool SwapChars(const QVariant&);
    bool SelectCaretLine(const QVariant&);
    bool SelectAll(const QVariant&);
    bool OpenLineBelow(const QVariant&);
    bool OpenLineAbove(const QVariant&);
    bool BreakLine(const QVariant&);
    bool DeleteToLineStart(const QVariant&);
    bool DeleteToLineEnd(const QVariant&);
    bool DeleteCaretLine(const QVariant&);
    bool CutLine(const QVariant&);
    bool Cut(const QVariant&);
    bool Copy(const QVariant&);
    bool CutAppend(const QVariant&);
    bool GotoLine(const QVariant& argument);
    bool ShowFindDialog(const QVariant&);
    bool ShowReplaceDialog(const QVariant&);
    bool TakeFindText(const QVariant& argument);
    bool TakeReplaceText(const QVariant& argument);
    bool FindNext(const QVariant&);
    bool FindPrevious(const QVariant&);
    bool ReplaceAllInDocument(const QVariant&);
    bool ReplaceAllInSelection(const QVariant&);
    bool BehindSelection(const QVariant&);
    bool ClearSelection(const QVariant&);
    bool DeleteWordLeft(const QVariant&);
    bool DeleteWordRight(const QVariant&);
    bool OpenMenu(const QVariant&);
    bool OpenCodeList(const QVariant&);
    qsizetype NextWord(qsizetype from) const;
    qsizetype PreviousWord(qsizetype from) const;
    Span CurrentWordSpan() const;

    bool Find(const Search& search, bool forward, bool wrap);
    struct SearchPiece;
    SearchPiece PieceFrom(const Search& search, qsizetype at, qsizetype end) const;
    bool ReplaceIn(const Search& search, Span& range, RunScope& run);
    bool ReplaceAllIn(const Search& search, QList<Span>& pieces, const std::function<void()>& select);
    Search StartSearch(bool replacing);

    Component text;
    Looks looks;
    MarginMarks* marks; ///< the widget is the component's
    Colouring colouring;
    CodeListBox codeList;
    DropPlace dropPlace{text};

    FileEncoding encoding = FileEncoding::Utf8;
    LineBreak lineEnd = LineBreak::CrLf;
    bool blank = true; ///< LineCount is 0

    /// Where the selection stood around an undo group, since the component only knows where its last edit was.
    struct GroupSelection
    {
        RawSelection Before, After;
        int LineBefore = 0, LineAfter = 0; ///< first in view
    };
    std::vector<GroupSelection> groupSelections; ///< by the number that the component's history holds
    RawSelection groupStart;
    quint64 groupEdits = 0;
    int groupLine = 0;
    std::optional<std::pair<RawSelection, int>> recalled; ///< by the step just undone or redone; its first line

    int groups = 0; ///< undo groups open
    int undoLimit = -1;
    int stepsBack = 0;         ///< undone since the last edit
    bool changedAside = false; ///< modified in a way that the undo history does not know

    QString findText, replaceText, findError;
    FindOptions findOptions;
    int replaceCount = 0;

    int working = 0, batches = 0, locks = 0;
    bool shown = true, settlePosted = false, showCaretLater = false;
    int typed = 0; ///< the last character typed, until the code list has seen it
    quint64 edits = 0;
    LineSpan shownLines; ///< last told
    struct
    {
        quint64 Edits = 0;
        RawSelection Selection;
        bool Modified = false, SelectionToo = false;
    } told;
    struct Measured
    {
        Span Selected;
        quint64 Edits = 0;
        qsizetype Units = 0;
    };
    mutable Measured measured; ///< of the last selection, since a growing one is asked for at each key
};
