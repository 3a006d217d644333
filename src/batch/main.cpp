#include "batch/answer_list.h"
#include "batch/batch_host.h"
#include "batch/prepare_tools.h"
#include "batch/verbs.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout), err(stderr);
    BatchHost host;
    AnswerList answers;
    InstallHost(host, answers);
    VerbStreams streams{out, err};
    const Result<> ready = PrepareTools(OrdinaryFolders(QCoreApplication::applicationDirPath()));
    return ready ? RunVerb(QCoreApplication::arguments().mid(1), streams) : Failed(ready.error(), streams);
}
