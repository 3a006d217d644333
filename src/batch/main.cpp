#include "batch/answer_list.h"
#include "batch/batch_host.h"
#include "batch/prepare_tools.h"
#include "batch/verbs.h"
#include "platform/files/beside_notes.h"
#include "platform/processes/signals.h"

#include <QCoreApplication>
#include <cerrno>
#include <cstdio>
#include <cstring>

int main(int argc, char** argv)
{
    OutliveFileLimits();
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout), err(stderr);
    BatchHost host;
    AnswerList answers(WhenAnswersEnd::FirstButton);
    InstallHost(host, answers);
    VerbStreams streams{out, err, answers};
    const Result<> ready = PrepareTools(OrdinaryFolders(QCoreApplication::applicationDirPath()));
    const VerbResult result =
        ready ? RunVerb(QCoreApplication::arguments().mid(1), streams) : Failed(ready.error(), streams);
    beside::ForgetNotes();
    out.flush();
    // What nobody could read is not done: a full disk after ">" for one.
    if (out.status() == QTextStream::Ok && std::fflush(stdout) == 0)
        return result;
    return Failed({QStringLiteral("standard output"), QString::fromLocal8Bit(std::strerror(errno))}, streams);
}
