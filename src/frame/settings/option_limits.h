#pragma once

#include <QString>

/// A number box's text as it shall be: `highest` if it is longer than `maxLength`, else its number brought between
/// `lowest` and `highest`, as plain decimal. What is no number counts as 0; what follows a number is dropped.
QString CheckLimit(const QString& text, int maxLength, int lowest, int highest);

/// The line character of comment separators as it shall be, given the search character. The two never end up equal,
/// blank or "#".
QString CheckLineChar(const QString& text, const QString& searchChar);
/// The search character, given the line character.
QString CheckSearchChar(const QString& text, const QString& lineChar);
