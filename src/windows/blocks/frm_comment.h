#pragma once

#include <QDialog>
#include <optional>

class IconGrid;
class QLineEdit;

/// What a comment separator is made of.
struct CommentSeparator
{
    QString Title, Code; ///< Code: one character or nothing
};

/// "Insert Comment Separator": asks for a title and the picture that the comment tree shows with it.
class frmComment : public QDialog
{
    Q_OBJECT

public:
    explicit frmComment(QWidget* parent);

    /// Nothing when the user cancels.
    static std::optional<CommentSeparator> Ask(QWidget* parent);

    QLineEdit* txtComment() const { return title; }
    IconGrid* picGoto() const { return grid; }

private:
    QLineEdit* title;
    IconGrid* grid;
};

/// Opens the window and writes the separator into the current document.
void InsertCommentCommand();
