#pragma once

#include <QByteArray>
#include <QStringBuilder>

/// A made-up graphics conf of `lines` lines, about 55 bytes each, whose values stand in ragged columns.
inline QByteArray RaggedConf(int lines)
{
    static constexpr const char* fields[] = {"xpos", "ypos", "frames", "delay", "start_frame", "global_sync", "offset"};
    static constexpr const char* actions[] = {"moving.left", "digging", "pushing.right", "falling", "growing.up"};
    QByteArray text;
    text.reserve(qsizetype(lines) * 58);
    for (int line = 0; line < lines; ++line) {
        if (line % 40 == 0) {
            text += "#~----------------- Block " + QByteArray::number(line / 40) + " -----------------a\n";
            continue;
        }
        text += "custom_" + QByteArray::number(line % 256 + 1) + '.' + actions[line % 5];
        if (line % 8 == 1)
            text += ":   RocksCustom.png\n";
        else
            text += '.' + QByteArray(fields[line % 7]) + ':' + QByteArray(line % 23 + 1, ' ') +
                    QByteArray::number(line % 17) + '\n';
    }
    return text;
}
