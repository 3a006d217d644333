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

/// A graphics conf of `blocks` element blocks in the proportions of the game's own: five lines a block and more.
inline QByteArray BlockConf(int blocks)
{
    static constexpr const char* parts[] = {"", ".moving.left", ".EDITOR", ".digging", ".falling"};
    QByteArray text;
    for (int block = 0; block < blocks; ++block) {
        const QByteArray key = "custom_" + QByteArray::number(block / 5) + parts[block % 5];
        text += key + ":   RocksCustom.png\n" + key + ".xpos:   " + QByteArray::number(block % 16) + '\n' + key +
                ".ypos:   3\n" + key + ".frames: 4\n" + (block % 2 ? key + ".delay: 2\n" : QByteArray());
    }
    return text;
}
