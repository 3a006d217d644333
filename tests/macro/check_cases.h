#pragma once

#include <QFile>
#include <QStringList>
#include <vector>

// The files in checks/ hold one macro a case:
//
//     === what the case shows
//     < a line of the text it works on
//     ? an answer to its dialogs
//     the macro
//     ---
//     what it must do: MESSAGE and the like as they come, "> " and a line of the text it leaves, ERROR LINE: TEXT
//
// "{folder}" stands for the folder that the macro runs in, which holds "Plain.txt" (5 bytes) and the folder "Sub".

struct CheckCase
{
    QString Name;
    QStringList Text, Answers, Source, Wanted;
};

inline std::vector<CheckCase> CheckCasesOf(const QString& file)
{
    QFile opened(file);
    std::vector<CheckCase> cases;
    if (!opened.open(QIODevice::ReadOnly))
        return cases;
    QStringList lines = QString::fromUtf8(opened.readAll()).split(u'\n');
    lines.removeLast();
    bool wanted = false;
    for (const QString& line : lines) {
        if (line.startsWith(QLatin1String("=== "))) {
            cases.push_back({line.sliced(4), {}, {}, {}, {}});
            wanted = false;
        } else if (cases.empty()) {
            continue;
        } else if (wanted) {
            if (!line.isEmpty())
                cases.back().Wanted << line;
        } else if (line == QLatin1String("---")) {
            wanted = true;
        } else if (line.startsWith(QLatin1String("< ")) && cases.back().Source.isEmpty()) {
            cases.back().Text << line.sliced(2);
        } else if (line.startsWith(QLatin1String("? ")) && cases.back().Source.isEmpty()) {
            cases.back().Answers << line.sliced(2);
        } else {
            cases.back().Source << line;
        }
    }
    return cases;
}
