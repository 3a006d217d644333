#include "macro/language/program.h"

#include "macro/language/run_loop.h"

namespace {

/// Does a line begin so? Letter case does not count.
bool Begins(const QString& line, QLatin1StringView word)
{
    return line.startsWith(word, Qt::CaseInsensitive);
}

qsizetype TrimmedSize(QStringView token)
{
    qsizetype first = 0, end = token.size();
    while (first < end && token[first] == u' ')
        ++first;
    while (end > first && token[end - 1] == u' ')
        --end;
    return end - first;
}

/// The fault of a label's or sub's line; stores its name if there is none.
QString TakeLabel(LabelTable& labels, const QString& line, int index)
{
    const QStringList tokens = line.split(u' ');
    if (QString fault = ShapeFault(tokens, Exactly(1)); !fault.isEmpty())
        return fault;
    const QString& name = tokens.at(1);
    if (QString fault = LabelNameFault(name); !fault.isEmpty())
        return fault;
    if (labels.Find(name))
        return QStringLiteral("Duplicate Label\\Sub error");
    if (labels.Count() < LabelTable::Most)
        labels.Add(name, index);
    return {};
}

} // namespace

void Program::Take(const QStringList& lines)
{
    LastLine = int(lines.size()) - 1;
    Lines = std::vector<ProgramLine>(size_t(lines.size()));
    NextFrom.assign(Lines.size() + 1, LastLine);
    for (int i = LastLine; i >= 0; --i) {
        ProgramLine& line = Lines[size_t(i)];
        line.Written = lines.at(i);
        line.Run = RunForTheFirstTime;
        NextFrom[size_t(i)] = i == LastLine ? LastLine : IsBlankLine(line.Written) ? NextFrom[size_t(i) + 1] : i;
    }
}

bool IsLabelLine(const QString& line)
{
    return Begins(line, QLatin1String("label")) || Begins(line, QLatin1String("sub"));
}

QString PrePassLine(LabelTable& labels, const QString& line, int index)
{
    if (!line.startsWith(u'#') && line.contains(QLatin1String("  ")))
        return QStringLiteral("Found double spaces on this line. Spaces are used as delimiters!");
    return IsLabelLine(line) ? TakeLabel(labels, line, index) : QString();
}

ProgramFault PrePass(Program& program)
{
    ProgramFault tooMany;
    int found = 0;
    for (int i = 0; i <= program.LastLine; ++i) {
        const QString& line = program.Lines[size_t(i)].Written;
        if (QString fault = PrePassLine(program.Labels, line, i); !fault.isEmpty())
            return {fault, i};
        if (IsLabelLine(line) && ++found > LabelTable::Most)
            tooMany = {QStringLiteral("You can only have 1000 Labels + Subs per macro"), i};
    }
    return tooMany;
}

QString ShapeFault(const QStringList& tokens, const Shape& shape)
{
    const int count = int(tokens.size()) - 1;
    const QString missing = QStringLiteral("Missing command or value in this line.");
    if (count < shape.Least)
        return missing;
    if (shape.Most >= 0 && count > shape.Most)
        return QStringLiteral("Too many commands in this line! Maximum is ") + QString::number(shape.Most);
    for (int i = 1; i <= count; ++i)
        if (TrimmedSize(tokens.at(i)) < shape.ShortestArgument)
            return missing;
    return {};
}

QString LabelNameFault(const QString& token)
{
    return token.startsWith(u'@') ? QString() : QStringLiteral("Missing @ in Label name.");
}

QString VariableNameFault(const QString& token, bool allowTag)
{
    if (token.startsWith(u'$') || token.startsWith(u'?'))
        return {};
    if (allowTag && token.startsWith(u'[') && token.endsWith(u']'))
        return {};
    return QStringLiteral("Missing $ or ? in variable name.");
}
