#include "batch/answer_list.h"
#include "batch/batch_host.h"
#include "macro/fuzz_macro.h"

#include <QCoreApplication>
#include <QTemporaryDir>

namespace {

/// What a run needs around it, once.
struct Surroundings
{
    Surroundings() { InstallHost(Host, Answers); }

    int Count = 1;
    char Name[5] = "fuzz";
    char* Names[1] = {Name};
    QCoreApplication Application{Count, Names};
    BatchHost Host;
    AnswerList Answers;
    QTemporaryDir Folder;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    static const Surroundings surroundings;
    const QString fault = FuzzMacro(QByteArrayView(data, qsizetype(size)), surroundings.Folder.path());
    if (!fault.isEmpty())
        qFatal("%s", qPrintable(fault));
    return 0;
}
