#pragma once

#include <QByteArray>
#include <QRandomGenerator>

/// How many inputs a test tries: so many, or for a long run by hand what FUZZ_ROUNDS in the environment says.
inline int FuzzRounds(int usual)
{
    const int wanted = qEnvironmentVariableIntValue("FUZZ_ROUNDS");
    return wanted > 0 ? wanted : usual;
}

/// The bytes with a few changes: single bytes and bits, huge numbers, stretches removed or doubled, mostly near the
/// front, where headers stand.
inline QByteArray Mutated(QByteArray bytes, QRandomGenerator& random)
{
    for (int change = random.bounded(1, 6); change > 0 && !bytes.isEmpty(); --change) {
        const int at = random.bounded(int(random.bounded(2) ? bytes.size() : qMin(bytes.size(), qsizetype(300))));
        const QByteArray wide = QByteArray::fromHex(random.bounded(2) ? "ffffffff" : "7ffffff8");
        switch (random.bounded(5)) {
        case 0:
            bytes[at] = char(random.bounded(256));
            break;
        case 1:
            bytes.replace(at, 4, wide);
            break;
        case 2:
            bytes.remove(at, random.bounded(1, 12));
            break;
        case 3:
            bytes.insert(at, bytes.mid(random.bounded(int(bytes.size())), random.bounded(1, 12)));
            break;
        default:
            bytes[at] = char(bytes[at] ^ (1 << random.bounded(8)));
        }
    }
    return bytes;
}
