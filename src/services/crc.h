#pragma once

#include "platform/result.h"

#include <QByteArrayView>
#include <QString>
#include <optional>

/// A CRC-32 (as in zip and PNG) or CRC-16/XMODEM of bytes, of a text or of a file. The value runs on, so that input can
/// come in pieces. A new object works out a CRC-32.
class clsCRC
{
public:
    qint32 AddBytes(QByteArrayView bytes);
    qint32 AddString(const QString& text); ///< one byte a character, "?" for one that has none

    /// 0: CRC-16, any other number: CRC-32. Clears.
    void SetAlgorithm(int number);
    int Algorithm() const { return wide ? -1 : 0; } ///< -1: CRC-32

    qint32 CalculateBytes(QByteArrayView bytes); ///< cleared first
    qint32 CalculateString(const QString& text);

    /// Of a file of any size, read piece by piece. No value for an empty one, which leaves all as it was.
    [[nodiscard]] Result<std::optional<qint32>> CalculateFile(const QString& path);

    qint32 Value() const;

    /// Stored as it stands: a CRC-32 reads back as the complement.
    void SetValue(qint32 number);

    /// Both back to their start.
    void Clear();

private:
    bool wide = true;
    quint32 register16 = 0;
    quint32 register32 = 0xFFFFFFFF;
};

/// The CRC-32 of a file in upper-case hexadecimal digits without leading zeros; "0" for an empty one.
[[nodiscard]] Result<QString> FileCrcText(const QString& path);
