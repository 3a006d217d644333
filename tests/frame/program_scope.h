#pragma once

#include "frame/files/file_commands.h"
#include "frame/files/tab_commands.h"
#include "frame/frame_state.h"
#include "frame/start/start_up.h"
#include "host_scope.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <gtest/gtest.h>

/// A program folder of its own with the shipped tables, and a host without a window.
class ProgramScope
{
public:
    ProgramScope()
    {
        for (const char* name :
             {"basic", "compat", "lg_gfxact", "lg_gfxele", "lg_other", "links", "user", "mapele", "levelheader"}) {
            const QString file = QStringLiteral("data/") + QString::fromLatin1(name) + QStringLiteral(".ini");
            QFile shipped(ProjectFile({}) + file);
            if (!shipped.open(QIODevice::ReadOnly))
                qFatal("no table %s", name);
            Program.Write(file, shipped.readAll());
        }
        Program.Write(QStringLiteral("Help"), "program");
        Program.Write(QStringLiteral("Help.zip"), "pages");
    }

    /// Replaces text in the folder's user.ini, before the start.
    void Edit(const QByteArray& from, const QByteArray& to)
    {
        const QByteArray text = UserIni();
        ASSERT_TRUE(text.contains(from)) << from.toStdString();
        Program.Write(QStringLiteral("data/user.ini"), QByteArray(text).replace(from, to));
    }

    bool Prepare(const QStringList& arguments = {})
    {
        StartFolders folders;
        folders.ProgramFolder = Program.Path();
        folders.StateFolder = State.Path();
        folders.SettingsReadOnly = SettingsReadOnly;
        return PrepareStart(folders, arguments);
    }

    void Start(const QStringList& arguments = {})
    {
        ASSERT_TRUE(Prepare(arguments));
        FinishStart();
        ShowHeldMessages();
    }

    QByteArray UserIni() const { return Program.Read(QStringLiteral("data/user.ini")); }

    /// Texts of the messages shown since the last call.
    QStringList TakeMessages()
    {
        QStringList texts;
        for (const MessageQuestion& question : Scope.Answers.AskedFor<MessageQuestion>())
            texts << question.Record.MessageText;
        Scope.Answers.Asked.clear();
        return texts;
    }

    /// A tab more with this file in it.
    void OpenInNewTab(const QString& path)
    {
        OpenNewTab();
        ActivateTab();
        ASSERT_TRUE(OpenDocument(path, false)) << path;
    }

    static void Type(const QString& text) { CurrentPane().InsertText(text, {}); }

    TestFolder Program, State, Work;
    bool SettingsReadOnly = false;
    HostScope Scope;
};

/// Lets events run until something is so; false after ten seconds.
template <class Condition>
bool WaitUntil(Condition condition)
{
    QElapsedTimer clock;
    for (clock.start(); clock.elapsed() < 10'000;) {
        if (condition())
            return true;
        QCoreApplication::processEvents();
        QThread::msleep(5);
    }
    return false;
}

class FrameTest : public testing::Test
{
protected:
    ProgramScope Run;
    BatchHost& Window = Run.Scope.Host;
    AnswerList& Answers = Run.Scope.Answers;
};
