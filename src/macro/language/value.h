#pragma once

#include "macro/language/numbers.h"

#include <QString>
#include <optional>

/// A value of a macro. It is always text; a whole number that nobody has looked at as text yet is kept as a number,
/// and what a text says as a number is found out once.
class Value
{
public:
    Value() = default;
    explicit Value(QString told) : text(std::move(told)) {}
    explicit Value(QLatin1StringView told) : text(told) {}
    explicit Value(qint32 whole) : number(whole), form(Form::Whole), written(false) {}
    static Value Truth(bool truth) { return Value(truth ? QStringLiteral("true") : QStringLiteral("false")); }

    void Set(qint32 whole)
    {
        if (written) {
            Unwrite(whole);
            return;
        }
        number = whole;
        form = Form::Whole;
        inRange = true;
    }
    void Set(const QString& told)
    {
        text = told;
        form = Form::Unread;
        written = true;
    }

    void Append(const QString& more)
    {
        Text();
        text += more;
        form = Form::Unread;
    }

    const QString& Text() const
    {
        if (!written)
            Write();
        return text;
    }
    bool IsEmpty() const { return written && text.isEmpty(); }
    bool IsNumeric() const
    {
        Read();
        return form == Form::Whole || form == Form::Numeric;
    }
    /// The text is just the decimal text of Number().
    bool IsWhole() const
    {
        Read();
        return form == Form::Whole;
    }
    qint32 Number() const { return number; } ///< once IsWhole has said so
    /// Known to be whole, without a look at the text.
    bool IsKnownWhole() const { return form == Form::Whole; }

    /// The number in front of the text, 0 if there is none; nothing if it is out of range.
    std::optional<qint32> Long() const
    {
        Read();
        return inRange ? std::optional(number) : std::nullopt;
    }

    /// The same text? Case counts.
    bool Equals(const Value& other) const
    {
        if (IsWhole() && other.IsWhole())
            return number == other.number;
        return form != Form::Whole && other.form != Form::Whole && text == other.text;
    }
    /// `first` is a mark of the language, so no number begins with it.
    bool BeginsWith(QChar first) const { return written && !text.isEmpty() && text.front() == first; }

private:
    enum class Form : quint8 { Unread, Word, Numeric, Whole };

    void Read() const
    {
        if (form == Form::Unread)
            ReadText();
    }
    void ReadText() const;
    void Write() const;
    void Unwrite(qint32 whole); ///< lets the text go as well

    mutable QString text;
    mutable qint32 number = 0;
    mutable Form form = Form::Unread;
    mutable bool written = true, inRange = true;
};

/// In a macro's source "|" stands for a blank inside a token, and a variable keeps it.
QString PipeToSpace(const QString& text);
QString SpaceToPipe(const QString& text);
