#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>

enum class FileEncoding { Utf8, Utf8Bom, Windows1252 };

/// What a file's bytes are: valid UTF-8 (with or without a mark), else Windows-1252.
FileEncoding EncodingOf(QByteArrayView file);

/// The file's text as UTF-8 without a mark. Every byte sequence has one; ToFile gives the same bytes back.
QByteArray FromFile(QByteArrayView file, FileEncoding encoding);

/// UTF-8 text as a file of that encoding; nothing if Windows-1252 cannot hold a character of it.
std::optional<QByteArray> ToFile(QByteArrayView utf8, FileEncoding encoding);
