#pragma once

#include <QByteArray>

class DocumentText;

/// Puts a default conf that the game has printed into the text of a set's conf, in the place of its placeholder: at
/// column 0 of `line`, which is taken down to the last line. What stands from three lines above to column 50 of five
/// lines below becomes one line break: the placeholder and the head of the dump, six or seven lines.
void MergeDump(DocumentText& text, int line, const QByteArray& printed);

/// Takes the placeholder out where the game has printed nothing.
void DropPlaceholder(DocumentText& text, const QString& placeholder);
