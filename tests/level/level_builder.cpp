#include "level_builder.h"

#include <QHash>
#include <QtEndian>

namespace {

QByteArray Big(qsizetype number, int bytes)
{
    QByteArray text;
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        text += char(number >> shift);
    return text;
}

/// Bytes that look like nothing and are the same in each run.
QByteArray Noise(qsizetype size)
{
    QByteArray bytes;
    quint32 seed = 12345;
    while (bytes.size() < size) {
        seed = seed * 1664525 + 1013904223;
        bytes += char(seed >> 24);
    }
    return bytes;
}

/// A text field with what an older, longer text left after it.
QByteArray TextField(const QByteArray& text)
{
    QByteArray field = text.left(32);
    if (field.size() < 32)
        field += '\0';
    return field + QByteArray("the end of an older, longer name").right(32 - field.size());
}

class Builder
{
public:
    explicit Builder(const LevelPlan& wanted) : plan(wanted) { At.Author = At.Mapsize = At.Double = NoField; }

    void HeaderBlock()
    {
        At.Width = Put(Big(plan.Width, 1));
        At.Height = Put(Big(plan.Height, 1));
        At.Time = Put(Big(plan.Time, 2));
        At.Count = Put(Big(plan.Count, 2));
        At.Cavename = Put(TextField(plan.Name));
        Put(Noise(58));
        At.Double = Put(Big(IsWide(plan), 1));
        Put(Noise(15));
    }
    void Author()
    {
        Put("AUTH" + Big(32, 4));
        At.Author = Put(TextField(plan.Author));
    }
    void Name()
    {
        Put("NAME" + Big(32, 4));
        At.Cavename = Put(TextField(plan.Name));
    }
    void Body(int size)
    {
        Put("BODY");
        At.Mapsize = Put(Big(size, 4)) + 2;
    }
    void Info()
    {
        // The engine, four bytes, and three bytes that look like records of their own.
        const QByteArray before = QByteArray::fromHex("0101"
                                                      "8141004200"
                                                      "c10003410042");
        Put("INFO" + Big(before.size() + 12 + 2, 4) + before);
        Put("\x41");
        At.Width = Put(Big(plan.Width, 2)) + 1;
        Put("\x42");
        At.Height = Put(Big(plan.Height, 2)) + 1;
        Put("\x43");
        At.Time = Put(Big(plan.Time, 2));
        Put("\x44");
        At.Count = Put(Big(plan.Count, 2));
        Put("\x0b\x01");
    }
    void Map()
    {
        for (int y = 0; y < plan.Height; ++y)
            for (int x = 0; x < plan.Width; ++x) {
                const qint32 at = Put(Big(CellOf(plan, x, y), IsWide(plan) ? 2 : 1));
                At.Mapdata = x == 0 && y == 0 ? at : At.Mapdata;
            }
        Put(plan.Tail);
    }
    qint32 Put(const QByteArray& bytes)
    {
        const qsizetype at = Bytes.size();
        Bytes += bytes;
        return qint32(at);
    }

    QByteArray Bytes;
    LevelOffsets At;

private:
    const LevelPlan& plan;
};

void OldForm(Builder& level, const LevelPlan& plan)
{
    const QByteArray number = plan.Form.left(3);
    level.Put("ROCKSNDIAMONDS_LEVEL_FILE_VERSION_" + number + "\n");
    if (number != "1.0")
        level.Put("HEAD" + Big(80, 4));
    level.HeaderBlock();
    if (plan.Form == "1.2 AUTH" || number == "1.4") {
        level.Author();
        level.Put("CONT" + Big(76, 4) + Noise(number == "1.4" ? 148 : 76));
    }
    if (number != "1.0")
        level.Body(plan.Width * plan.Height);
}

void CurrentForm(Builder& level, const LevelPlan& plan)
{
    const bool records = plan.Form == "rnd1-3";
    level.Put("RND1" + Big(0, 4) + "CAVEVERS" + Big(8, 4) +
              QByteArray::fromHex(records ? "0300000004030200" : "0200000003010100"));
    if (records) {
        level.Put("DATE" + Big(4, 4) + QByteArray::fromHex("07e60611"));
        level.Name();
        level.Author();
        level.Info();
    } else {
        level.Put("HEAD" + Big(80, 4));
        level.HeaderBlock();
        level.Author();
    }
    level.Body(plan.Width * plan.Height * (IsWide(plan) ? 2 : 1));
}

} // namespace

int CellOf(const LevelPlan& plan, int x, int y)
{
    const int value = x == 0 && y == 0 ? 0xfedc : (x * 7 + y * 131) % 1000;
    return IsWide(plan) ? value : value & 255;
}

bool IsWide(const LevelPlan& plan)
{
    if (plan.Form == "1.4" || plan.Form == "rnd1-3")
        return true;
    return plan.Form == "rnd1-2" && plan.Wide;
}

BuiltLevel BuildLevel(const LevelPlan& plan)
{
    Builder level(plan);
    if (plan.Form.startsWith("rnd1"))
        CurrentForm(level, plan);
    else
        OldForm(level, plan);
    level.Map();
    return {level.Bytes, level.At};
}

LevelOffsets KnownOffsets(const QString& section)
{
    const QString old = QStringLiteral("ROCKSNDIAMONDS_LEVEL_FILE_VERSION_");
    const QHash<QString, LevelOffsets> rows = {
        {old + QStringLiteral("1.0"), {38, 39, 40, 42, 44, 134, NoField, NoField, 150}},
        {old + QStringLiteral("1.2"), {46, 47, 48, 50, 52, 142, NoField, 164, 166}},
        {old + QStringLiteral("1.2 AUTH"), {46, 47, 48, 50, 52, 142, 166, 288, 290}},
        {old + QStringLiteral("1.4"), {46, 47, 48, 50, 52, 142, 166, 360, 362}},
        {QStringLiteral("RND1"), {36, 37, 38, 40, 42, 132, 156, 194, 196}},
    };
    return rows.value(section);
}

QList<LevelPlan> EveryForm()
{
    QList<LevelPlan> plans;
    for (const char* form : {"1.0", "1.2 BODY", "1.2 AUTH", "1.4", "rnd1-2", "rnd1-3"})
        plans << LevelPlan{.Form = form};
    plans << LevelPlan{.Form = "rnd1-2", .Wide = false};
    plans << LevelPlan{.Form = "rnd1-2", .Tail = ChunkBytes("CUS4", 144) + ChunkBytes("GRP1", 74)};
    plans << LevelPlan{.Form = "rnd1-3", .Tail = ChunkBytes("CUSX", 61) + ChunkBytes("NOTE", 12)};
    return plans;
}

QByteArray ChunkBytes(const QByteArray& name, qsizetype size)
{
    return name + Big(size, 4) + Noise(size);
}
