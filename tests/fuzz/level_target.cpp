#include "level/fuzz_level.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    const QString fault = FuzzLevel(QByteArrayView(data, qsizetype(size)));
    if (!fault.isEmpty())
        qFatal("%s", qPrintable(fault));
    return 0;
}
