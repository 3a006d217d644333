#include "platform/images/images.h"

#include "platform/images/image_service.h"
#include "platform/images/picture_maker.h"
#include "platform/platform_state.h"

#include <QCoreApplication>

namespace images {

namespace {

/// Made at the first call, so that a program that shows no image has no thread and no helper.
Service& TheService()
{
    if (!Platform.Images) {
        ServicePlan plan;
        plan.Decoder = QCoreApplication::applicationDirPath() + QStringLiteral("/gemforge-decoder");
        Platform.Images = std::make_unique<Service>(std::move(plan));
    }
    return *Platform.Images;
}

} // namespace

Result<Picture> Load(const QString& path, int kind, const Turn& turn)
{
    return TheService().Load(path, kind, turn);
}

Result<Picture> LoadAny(const QString& path, const Turn& turn)
{
    return Load(path, ImageKindOfFile(path), turn);
}

void LoadLater(const QString& path, QObject* context, PictureReady ready, int kind)
{
    TheService().LoadLater(path, kind, context, std::move(ready));
}

std::optional<Picture> Kept(const QString& path, int kind)
{
    return Platform.Images ? Platform.Images->Kept(path, kind) : std::nullopt;
}

Result<Header> ReadHeader(const QString& path, int kind, const Turn& turn)
{
    return TheService().ReadHeader(path, kind, turn);
}

void Warm()
{
    TheService().Warm();
}

void Stop()
{
    Platform.Images.reset();
    Platform.Maker.reset();
}

} // namespace images
