#pragma once

#include "platform/images/decoder_process.h"
#include "platform/images/image_making.h"

namespace images {

/// The helper process that images.h hands nothing: the one that works on pictures of ours, which may take seconds and
/// be stopped. Used by the main thread only.
class PictureMaker
{
public:
    explicit PictureMaker(QString program);

    Result<DecoderProcess::Reply> Make(decoder::Request request, const QImage& picture, const Turn& turn);

private:
    DecoderProcess::Reply Ask(const decoder::Request& request, int file, const Turn& turn);

    QString program;
    std::atomic<bool> givenUp = false;
    quint32 serial = 0;
    DecoderProcess helper;
};

} // namespace images
