#pragma once

#include <QString>
#include <optional>

/// What a text says as a number.
struct ReadNumber
{
    bool Numeric = false;           ///< the whole text is a number; blanks around it do not count
    bool Plain = false;             ///< and is written just as the number is when it becomes text
    std::optional<qint32> Long = 0; ///< the number in front, halves rounded to the even one; nothing: out of range
};

/// Sign, digits, point and exponent, or "&H" with hexadecimal digits, of which up to four are a signed 16-bit number
/// and up to eight a signed 32-bit one. "&O" is read as octal but makes no numeric text.
ReadNumber NumberIn(QStringView text);

bool IsNumeric(QStringView text);

inline constexpr const char* RangeMessage =
    "This variable is too large or too small. Ranges are -2,147,483,648 to 2,147,483,648";
