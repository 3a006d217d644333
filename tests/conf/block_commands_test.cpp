#include "conf/block_commands.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <set>

// Catches: a row that reads or writes the place of another, a value outside its bounds, text that a second read takes
// otherwise, a default that the field itself would not keep.
TEST(BlockCommands, EveryFieldReadsWhatItWrites)
{
    QRandomGenerator random(8);
    std::set<QString> words;
    for (size_t field = 0; field < RecordFields; ++field) {
        const BlockCommand& row = BlockCommands.at(field);
        SCOPED_TRACE(row.Word);
        EXPECT_TRUE(words.insert(QString::fromLatin1(row.Word)).second);
        ElementRecord standard;
        ReadField(field, QString::fromLatin1(row.Default), standard);
        EXPECT_EQ(FieldText(field, standard), QLatin1String(row.Default));
        for (int round = 0; round < 50; ++round) {
            ElementRecord read, again;
            ReadField(field, QString::number(int(random.generate())), read);
            ReadField(field, FieldText(field, read), again);
            EXPECT_EQ(again, read);
            for (size_t other = 0; other < RecordFields; ++other)
                if (other != field) {
                    EXPECT_EQ(FieldText(other, read), FieldText(other, ElementRecord()))
                        << BlockCommands.at(other).Word;
                }
            if (row.Kind == ValueKind::Number) {
                EXPECT_TRUE(read.*row.Number >= row.Low && read.*row.Number <= row.High);
            }
        }
    }
}
