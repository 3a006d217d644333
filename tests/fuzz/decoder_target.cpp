#include "decoder/fuzz_decoder.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    const QString fault = FuzzDecoder(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (!fault.isEmpty())
        qFatal("%s", qPrintable(fault));
    return 0;
}
