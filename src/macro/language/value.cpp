#include "macro/language/value.h"

void Value::ReadText() const
{
    const ReadNumber read = NumberIn(text);
    number = read.Long.value_or(0);
    inRange = read.Long.has_value();
    form = read.Plain ? Form::Whole : read.Numeric ? Form::Numeric : Form::Word;
}

void Value::Write() const
{
    text = QString::number(number);
    written = true;
}

void Value::Unwrite(qint32 whole)
{
    text = QString();
    written = false;
    Set(whole);
}

QString PipeToSpace(const QString& text)
{
    return text.contains(QLatin1Char('|')) ? QString(text).replace(QLatin1Char('|'), QLatin1Char(' ')) : text;
}

QString SpaceToPipe(const QString& text)
{
    return text.contains(QLatin1Char(' ')) ? QString(text).replace(QLatin1Char(' '), QLatin1Char('|')) : text;
}
