#pragma once

#include <QString>
#include <QStringList>
#include <functional>

/// Words for the code list at a place of a macro's source.

/// What is offered behind `before`, the caret's line up to the caret: commands where the line begins, else what the
/// sign in front of the word asks for. Without a sign only what a jump needs or, not `typing`, everything that has a
/// value. `source`: asked for all lines of the source where names of its own are offered.
QStringList CodeWordsAt(const QString& before, bool typing, const std::function<QStringList()>& source);

/// What a chosen item puts over the word at the caret, its sign included, and how many characters of the line it
/// replaces before and behind the caret.
struct CodePick
{
    QString Text;
    int Before = 0, Behind = 0;
};
CodePick PickOf(const QString& item, const QString& line, int column);
