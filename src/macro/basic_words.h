#pragma once

#include "frame/editor_pane.h"

#include <QStringList>
#include <vector>

/// A section of the table of the language's words.
struct BasicWordGroup
{
    QString Heading; ///< in the command list; empty: it continues the group before
    QStringList Words;
};

/// All words of Gemforge BASIC in the order of the command list: commands, tags, operators, words that stand as
/// arguments, commands on the text.
std::vector<BasicWordGroup> BasicWords();

/// What a code pane colours, of these groups.
LanguageObject BasicLanguage(const std::vector<BasicWordGroup>& groups);
