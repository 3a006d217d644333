#include "test_support.h"

#include <QCoreApplication>
#include <QProcess>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Ended
{
    int Code = -1;
    QByteArray Out, Err;
};

/// The program itself, in a home of its own.
struct BatchProgram : testing::Test
{
    Ended Call(const QStringList& arguments, const QString& outFile = {})
    {
        return Started(QCoreApplication::applicationDirPath() + u"/gemforge-batch"_s, arguments, outFile);
    }

    Ended Started(const QString& program, const QStringList& arguments, const QString& outFile = {})
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const QString& name : environment.keys())
            if (name.startsWith(u"XDG_"_s))
                environment.remove(name);
        environment.insert(u"HOME"_s, Work.Path());
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(Work.Path());
        if (!outFile.isEmpty())
            process.setStandardOutputFile(outFile);
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
    }

    TestFolder Work;
};

} // namespace

// Catches: a program that does not find its tables, mixes its two outputs, or ends with another code than its verb.
TEST_F(BatchProgram, PrintsAndEndsAsItsVerbsDo)
{
    const Ended help = Call({u"--help"_s});
    EXPECT_EQ(help.Code, 0);
    EXPECT_TRUE(help.Out.contains("gemforge-batch check FILE"));
    EXPECT_EQ(help.Err, "");
    const Ended wrong = Call({u"juggle"_s});
    EXPECT_EQ(wrong.Code, 2);
    EXPECT_EQ(wrong.Out, "");
    EXPECT_TRUE(wrong.Err.contains("juggle"));

    Work.Write(u"\u00e4\u20ac.txt"_s, "print \xC3\xA4 [br] b\n");
    const Ended run = Call({u"run"_s, u"\u00e4\u20ac.txt"_s});
    EXPECT_EQ(run.Code, 0);
    EXPECT_EQ(run.Out, "\xC3\xA4\nb");
    const QString conf = Work.Write(u"graphicsinfo.conf"_s, "yamyam: none.pcx\n");
    const Ended check = Call({u"check"_s, conf});
    EXPECT_EQ(check.Code, 1);
    EXPECT_TRUE(check.Out.contains("graphicsinfo.conf:1: "));
    EXPECT_EQ(Work.Read(u"graphicsinfo.conf"_s), "yamyam: none.pcx\n");
}

// Catches: output that nobody got and that counts as done, a program that a limit of file sizes kills, a file that such
// a limit leaves cut.
TEST_F(BatchProgram, WhatCannotBeWrittenIsNotDone)
{
    const Ended full = Call({u"--help"_s}, u"/dev/full"_s);
    EXPECT_EQ(full.Code, 2);
    EXPECT_TRUE(full.Err.contains("standard output"));

    const QByteArray before = QByteArray("yamyam: a.pcx\n").repeated(200);
    const QString conf = Work.Write(u"graphicsinfo.conf"_s, before);
    const Ended limited = Started(u"/bin/sh"_s, {u"-c"_s, u"ulimit -f 1; exec \"$0\" tidy \"$1\""_s,
                                                 QCoreApplication::applicationDirPath() + u"/gemforge-batch"_s, conf});
    EXPECT_EQ(limited.Code, 2);
    EXPECT_TRUE(limited.Err.contains("graphicsinfo.conf"));
    EXPECT_EQ(Work.Read(u"graphicsinfo.conf"_s), before);
}
