#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

/// A macro's source on its way to the lines that run.
struct PreparedSource
{
    QStringList Lines; ///< the last one is empty; none at all for an empty source
    QString ErrorText; ///< why there are no lines
    int ErrorLine = 0;
};

/// Source as a macro file holds it: UTF-8, or Windows-1252 where it is not.
QString SourceFromBytes(QByteArrayView bytes);

/// Resolves quotes: they vanish, and each blank between two of them becomes "|". The walk knows no lines and no
/// comments. Sets `errorText` and gives back nothing if the quotes do not pair up.
QString MaskQuotedSpaces(const QString& text, QString& errorText);

/// Makes lines of a whole source: tabs vanish, quotes are resolved. A source whose last line does not end gets an end,
/// and a lone line feed ends a line too.
PreparedSource PrepareSource(QString text);

/// Source that was typed, tidied for a test run.
struct TidySource
{
    QStringList Lines;
    int FaultLine = -1; ///< a line that begins with a variable; -1: none. The lines in front of it are tidied
};

/// Trims every line and makes one blank of several outside quotes; comments keep theirs. The last line is empty.
TidySource TidyTypedSource(const QStringList& typed);

/// Typed source as it is saved: tidied lines, each with its end. The last one is left out if it is empty.
QString SourceToSave(const QStringList& typed);

/// Takes the tabs out of tidied lines, with the blanks beside them.
QString WithoutTabs(QString text);
