#pragma once

#include <QStringList>

/// The lines that show a text in the level editor's palette: a "char_..." element for each letter, digit, blank and
/// hyphen, nothing for other characters.
QStringList HeadlineLines(const QString& text);

/// "Make Editor Headline": asks for a text of at most 50 characters and puts its lines below the caret's line.
void MakeHeadline();
