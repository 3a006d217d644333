#include "platform/images/image_making.h"

#include "platform/images/picture_maker.h"
#include "platform/platform_state.h"

#include <QCoreApplication>

namespace images {

namespace {

/// Made at the first call, like the one that decodes.
PictureMaker& TheMaker()
{
    if (!Platform.Maker)
        Platform.Maker = std::make_unique<PictureMaker>(QCoreApplication::applicationDirPath() +
                                                        QStringLiteral("/gemforge-decoder"));
    return *Platform.Maker;
}

} // namespace

Result<QImage> Reduce(const QImage& picture, const Reduction& how, const Turn& turn)
{
    return TheMaker()
        .Make({.What = decoder::Task::Reduced, .How = how}, picture, turn)
        .map([](const DecoderProcess::Reply& reply) { return reply.Pixels; });
}

Result<QByteArray> GifBytes(const QImage& picture, const Turn& turn)
{
    return TheMaker().Make({.What = decoder::Task::Gif}, picture, turn).map([](const DecoderProcess::Reply& reply) {
        return reply.File;
    });
}

} // namespace images
