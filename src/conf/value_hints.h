#pragma once

#include <QByteArrayView>
#include <QSize>
#include <QStringList>
#include <vector>

/// What the game takes another way than its author meant, without a word: values of a graphics conf (release 4.4.2.1).

/// What a parameter of a graphic takes.
enum class ParameterKind { Other, Number, Truth, Mode, Element };

/// By the last part of a key; a key of one part has none.
ParameterKind KindOfParameter(QByteArrayView key);

/// What is to be said of a value; no message: nothing.
struct ValueSaying
{
    QString Message;
    QString Wrong = {}, Right = {}; ///< a word of the value and the one that was probably meant; empty: nothing fits
};

/// Of the value of one line. A value in brackets ("[DEFAULT]") is the game's own.
ValueSaying ValueHint(QByteArrayView key, QByteArrayView value, const QStringList& elements);

struct BlockHint
{
    int Line = 0; ///< below the main line
    QString Message;
};

/// A block from its main line on: its parameters count up to the first line that does not start with its key.
/// `sheet`: size of its image, empty if it is not known. What is to be said beside its lines.
std::vector<BlockHint> BlockHints(QByteArrayView block, QSize sheet);
