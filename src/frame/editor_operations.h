#pragma once

#include "platform/result.h"

#include <QByteArrayView>
#include <QColor>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <vector>

/// Lines and columns count from 0. Columns and lengths are UTF-16 units of GetLine. A whole-line end may be told as
/// column LineEndColumn.
struct Range
{
    int StartLine = 0, StartCol = 0, EndLine = 0, EndCol = 0;
    bool ColumnSel = false;

    bool operator==(const Range&) const = default;
};
constexpr int LineEndColumn = 255;

enum class FileEncoding { Utf8, Utf8Bom, Windows1252 };
enum class LineBreak { CrLf, Lf, Cr };

/// What a mode colours. Word fields hold words parted by line feeds.
struct LanguageObject
{
    QString Keywords, TagEntities, TagElementNames, TagAttributeNames;
    QString SingleLineComments, Operators, StringDelims;
};

/// Command numbers of ExecuteCmd. Names in the code, numbers in macros.
enum PaneCommand : int {
    CmdSwapWords = 101,
    CmdWordRightExtend = 102,
    CmdWordRight = 103,
    CmdWordLeftExtend = 107,
    CmdWordLeft = 108,
    CmdUndo = 129,
    CmdSelectLine = 136,
    CmdSelectAll = 137,
    CmdRedo = 139,
    CmdPaste = 140,
    CmdParagraphUp = 141,
    CmdParagraphDown = 142,
    CmdPageUpExtend = 143,
    CmdPageUp = 144,
    CmdPageDownExtend = 145,
    CmdPageDown = 146,
    CmdLineUpExtend = 148,
    CmdLineUp = 149,
    CmdOpenLineBelow = 152,
    CmdOpenLineAbove = 153,
    CmdLineEndExtend = 154,
    CmdLineEnd = 155,
    CmdLineDownExtend = 156,
    CmdLineDown = 157,
    CmdDeleteToLineStart = 158,
    CmdDeleteToLineEnd = 159,
    CmdDeleteLine = 160,
    CmdCutLine = 161,
    CmdLineStartExtend = 164,
    CmdLineStart = 165,
    CmdGotoLine = 168,
    CmdReplaceDialog = 169,
    CmdReplaceAll = 171,
    CmdReplaceAllInSelection = 172,
    CmdFindPrevious = 174,
    CmdFindNext = 176,
    CmdFindDialog = 178,
    CmdSetFindText = 179,
    CmdSetReplaceText = 180,
    CmdBehindSelText = 184,
    CmdDocumentStartExtend = 188,
    CmdDocumentStart = 189,
    CmdDocumentEndExtend = 190,
    CmdDocumentEnd = 191,
    CmdDeleteLeft = 194,
    CmdDeleteRight = 195,
    CmdCut = 197,
    CmdCopy = 198,
    CmdSwapChars = 199,
    CmdCharRightExtend = 200,
    CmdCharRight = 201,
    CmdCharLeftExtend = 202,
    CmdCharLeft = 203,
    CmdCutAppend = 210,
    CmdBreakLine = 212,
    CmdOpenUndoGroup = 225,
    CmdCloseUndoGroup = 226,
    CmdClearSelection = 229,
};

/// How a search runs; the find dialogs set it, commands 174, 176, 171 and 172 obey it.
struct FindOptions
{
    bool MatchCase = false, WholeWord = false, RegularExpression = false, Wrap = false;
};

/// Lines of a text, the last included; none while Last is below First.
struct LineSpan
{
    int First = 0, Last = -1;

    bool operator==(const LineSpan&) const = default;
};

/// Something to be said of a line.
struct LineMark
{
    int Line = 0;
    bool Strong = false; ///< an error, else a hint
    QString Message;

    bool operator==(const LineMark&) const = default;
};

/// The one list of operations that the whole program uses on a text pane. The class behind it lives in editor/.
/// Callers of Text and SelText see CR LF whatever the file has; Bytes is UTF-8 with the document's own line ends.
class EditorPane : public QObject
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
    [[nodiscard]] virtual Result<> SaveFile(const QString& path, bool flag) = 0;
    [[nodiscard]] virtual Result<> InsertFile(const QString& path, const Range& at) = 0;
    virtual void LoadBytes(const QByteArray& bytes) = 0; ///< as OpenFile does with a file's bytes
    virtual QByteArray FileBytes() const = 0;            ///< what SaveFile would write; UTF-8 if the text does not fit
    virtual FileEncoding Encoding() const = 0;
    virtual void SetEncoding(FileEncoding encoding) = 0;
    virtual bool FitsEncoding() const = 0; ///< false: a character that Windows-1252 cannot hold
    virtual LineBreak LineEnd() const = 0; ///< what inserted lines take
    virtual void SetLineEnd(LineBreak lineEnd) = 0;

    // Commands and undo
    virtual bool ExecuteCmd(int number, const QVariant& argument = {}) = 0; ///< false: unknown or refused
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

    // Looks
    virtual QString Language() const = 0;
    virtual void SetLanguage(const QString& name) = 0;
    virtual void SetColor(int slot, int bgr) = 0; ///< 0x00BBGGRR
    virtual int GetColor(int slot) const = 0;
    virtual void SetFontStyle(int slot, int style) = 0; ///< 0 normal, 1 bold, 2 italic, 3 both
    virtual int GetFontStyle(int slot) const = 0;
    virtual void SetPaneFont(const QString& name, double points) = 0;
    virtual QString FontName() const = 0;
    virtual double FontSize() const = 0;
    virtual void SetTabSize(int columns) = 0;
    virtual void SetColorSyntax(bool on) = 0;
    virtual void SetDisplayWhitespace(bool on) = 0;
    virtual void SetLineNumbering(bool on) = 0;
    virtual void SetHighlightedLine(int line) = 0;   ///< -1: none
    virtual void MarkBlock(int first, int last) = 0; ///< a faint bar beside these lines; -1: none. Gone with an edit
    virtual void ShowLineMarks(bool on) = 0;         ///< makes room for them beside the text
    virtual void
    SetLineMarks(std::vector<LineMark> wanted) = 0; ///< in the order of their lines, in place of those before
    virtual LineSpan VisibleLines() const = 0;
    virtual bool Visible() const = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual void LockRedraw(bool locked) = 0; ///< nests
    virtual void PrintStyled(const QString& text, int fore, int back) = 0;
    virtual void FocusPane() = 0;
    virtual void SetOvertype(bool on) = 0; ///< typing replaces what stands behind the caret

    /// Bulk edits between the two tell their change once, at the end. Nests. Use EditBatch.
    virtual void BeginBatch() = 0;
    virtual void EndBatch() = 0;

    virtual bool CodeListOpen() const = 0;
    virtual void CloseCodeList() = 0; ///< Esc closes the list before it stops anything

    /// Asked when the list may open, by a key of its own or because the user is typing; empty answer: none.
    std::function<QStringList(EditorPane&, bool typing)> CodeList;
    std::function<bool(EditorPane&, const QString&)> CodeListPick; ///< item chosen; false: the pane inserts nothing
    std::function<QString(EditorPane&, int line, int column)> HoverText;   ///< of the text under the mouse; empty: none
    std::function<QImage(EditorPane&, int line, int column)> HoverPicture; ///< beside HoverText; null: none
    std::function<bool(const QStringList& paths)> LeaveNames; ///< would files that are dragged leave their names?

signals:
    void SelectionChanged();
    void ViewMoved(); ///< other lines are in view
    void TextChanged();
    void ModifiedChanged(bool modified);
    void MouseMoved();
    void FocusGained();
    void MousePressed(Qt::MouseButton button, Qt::KeyboardModifiers keys);
    void FilesDropped(const QStringList& paths, const Range& at);
};

/// One object shared by all panes: the languages and the two histories.
class EditorGlobals
{
public:
    void UnregisterAllLanguages();
    void RegisterLanguage(const QString& name, const LanguageObject& language);
    const LanguageObject* FindLanguage(const QString& name) const; ///< valid until the next Unregister
    int Generation() const { return generation; }                  ///< rises with each change of the languages

    void AddFind(const QString& text); ///< newest first, no text twice
    void AddReplace(const QString& text);

    QString FindMRUList, ReplaceMRUList; ///< items parted by line feeds, line breaks inside an item as "\n"

private:
    QHash<QString, LanguageObject> languages;
    int generation = 0;
};

/// One undo step from construction to Close or the end of the scope; closes once.
class UndoGroup
{
public:
    explicit UndoGroup(EditorPane& pane);
    ~UndoGroup();
    UndoGroup(const UndoGroup&) = delete;
    UndoGroup& operator=(const UndoGroup&) = delete;
    void Close();

private:
    EditorPane* pane;
};

/// Redraw and notifications of a pane off for many edits.
class EditBatch
{
public:
    explicit EditBatch(EditorPane& pane);
    ~EditBatch();
    EditBatch(const EditBatch&) = delete;
    EditBatch& operator=(const EditBatch&) = delete;

private:
    EditorPane& pane;
};
