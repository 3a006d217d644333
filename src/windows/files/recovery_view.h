#pragma once

#include "frame/recovery/recovery.h"

#include <QSyntaxHighlighter>

/// A recovered text beside what its file holds now, as lines that begin with "- " (only in the file), "+ " (only in
/// the kept text) or two blanks. Without a file, and for texts that are huge or have little in common, the start of
/// the kept text alone. Heading says which of these it is.
struct RecoveryView
{
    QString Heading, Lines;
};
RecoveryView ViewOf(const RecoveredText& text);

/// Colours the lines of such a view by their first character.
class DiffColours : public QSyntaxHighlighter
{
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

    bool Dark = false; ///< colours for a dark window

protected:
    void highlightBlock(const QString& line) override;
};
