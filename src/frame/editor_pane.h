#pragma once

#include "text/document_text.h"

#include <QColor>
#include <QHash>
#include <QStringList>
#include <functional>
#include <vector>

/// What a mode colours. Word fields hold words parted by line feeds.
struct LanguageObject
{
    QString Keywords, TagEntities, TagElementNames, TagAttributeNames;
    QString SingleLineComments, Operators, StringDelims;
};

enum class FindKind { Find, Replace, GotoLine };

/// Something to be said of a line.
struct LineMark
{
    int Line = 0;
    bool Strong = false; ///< an error, else a hint
    QString Message;

    bool operator==(const LineMark&) const = default;
};

/// What may stand as the value that the caret is in.
struct OfferedValues
{
    QStringList Items;
    Range Place;        ///< of the value in the text, in one line: what an item replaces
    QString Typed;      ///< of the value in front of the caret
    bool Files = false; ///< the items name files, which may have a picture
};

/// A text with what a person sees of it: looks, hover, code list, drops, marks in the margin. The class behind it lives
/// in editor/.
class EditorPane : public DocumentText
{
    Q_OBJECT

public:
    using DocumentText::DocumentText;

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
    /// Lines in order at which a run stops; a message is the condition that it depends on. They move with their lines.
    /// From the first call on a click beside the text tells MarginPressed.
    virtual void SetStops(std::vector<LineMark> wanted) = 0;
    virtual std::vector<LineMark> Stops() const = 0;
    virtual void SetReadOnly(bool on) = 0; ///< for its user; edits of the program are lost too
    virtual LineSpan VisibleLines() const = 0;
    virtual bool Visible() const = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual void LockRedraw(bool locked) = 0; ///< nests
    virtual void PrintStyled(const QString& text, int fore, int back) = 0;
    virtual void FocusPane() = 0;

    virtual bool CodeListOpen() const = 0;
    virtual void CloseCodeList() = 0; ///< Esc closes the list before it stops anything

    /// Asked when the list may open, by a key of its own or because the user is typing; empty answer: none.
    std::function<QStringList(EditorPane&, bool typing)> CodeList;
    std::function<bool(EditorPane&, const QString&)> CodeListPick; ///< item chosen; false: the pane inserts nothing
    /// Asked beside CodeList; what it offers stands in front and is narrowed while the user types.
    std::function<OfferedValues(EditorPane&)> CodeValues;
    /// Small picture of a file; null: none. Where it is not read yet `later` is called once it is.
    std::function<QImage(EditorPane&, const QString& file, std::function<void()> later)> CodePicture;
    std::function<QString(EditorPane&, int line, int column)> HoverText;   ///< of the text under the mouse; empty: none
    std::function<QImage(EditorPane&, int line, int column)> HoverPicture; ///< beside HoverText; null: none
    std::function<bool(const QStringList& paths)> LeaveNames; ///< would files that are dragged leave their names?

signals:
    void CommandBegins(int number); ///< a numbered command, by a key or by a caller; none of those inside it
    void CommandDone(int number);
    void FindWanted(FindKind kind);           ///< a command asks for a dialog beside this text
    void LineCut(int line, qsizetype length); ///< a line has come that is too long to be shown whole
    void ViewMoved();                         ///< other lines are in view
    void MouseMoved();
    void FocusGained();
    void MousePressed(Qt::MouseButton button, Qt::KeyboardModifiers keys);
    void MarginPressed(int line);
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
