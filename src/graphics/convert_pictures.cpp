#include "graphics/convert_pictures.h"

#include "frame/media/media_lists.h"
#include "graphics/see_through.h"
#include "platform/files/paths.h"
#include "platform/images/images.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace {

Result<QImage> Prepared(const images::Picture& picture, const ConversionPlan& plan, const Turn& turn)
{
    const QImage pixels = plan.SeeThroughBlack ? OverBlack(picture.Pixels) : WithoutAlpha(picture.Pixels);
    return plan.Fewer ? images::Reduce(pixels, *plan.Fewer, turn) : Result<QImage>(pixels);
}

/// Refuses what would lie over another file, else converts.
Result<bool> ConvertInto(const QString& from, const QString& to, const ConversionPlan& plan, QSet<QString>& made,
                         const Turn& turn)
{
    const QString name = paths::FileNameOfPath(to);
    if (made.contains(name.toLower()))
        return Fail(from, QStringLiteral("Another of these pictures has become ") + name);
    if (!plan.Overwrite && paths::FileExists(to))
        return Fail(from, name + QStringLiteral(" is there already"));
    const Result<bool> done = ConvertPicture(from, to, plan, turn);
    if (done)
        made << name.toLower();
    return done;
}

} // namespace

Result<bool> ConvertPicture(const QString& from, const QString& to, const ConversionPlan& plan, const Turn& turn)
{
    const Result<images::Picture> picture = images::LoadAny(from, turn);
    if (!picture)
        return tl::unexpected(picture.error());
    const Result<QImage> pixels = Prepared(*picture, plan, turn);
    if (!pixels)
        return Fail(from, pixels.error().Reason);
    const Result<> written = WritePicture(to, *pixels, plan.Fewer ? PcxDepth::Palette : PcxDepth::Full);
    return written ? Result<bool>(!picture->EndsEarly) : tl::unexpected(written.error());
}

QStringList PicturesIn(const QString& folder)
{
    QStringList files;
    for (const QString& name : QDir(folder).entryList(QDir::Files))
        if (const QString path = paths::Closed(folder) + name; ImageKindOfFile(path) >= 0)
            files << path;
    std::sort(files.begin(), files.end(), NaturallyBefore);
    return files;
}

ConversionReport ConvertPictures(const QStringList& files, const QString& folder, const ConversionPlan& plan,
                                 const ConversionTurn& turn)
{
    ConversionReport report;
    QSet<QString> made;
    for (int done = 0; done < files.size(); ++done) {
        const Turn between = [&] {
            report.Stopped = report.Stopped || (turn && !turn(done));
            return !report.Stopped;
        };
        if (!between())
            break;
        const QString& from = files.at(done);
        const QString to = paths::Closed(folder) + QFileInfo(from).completeBaseName() + EndingOf(plan.Form);
        const Result<bool> one = ConvertInto(from, to, plan, made, between);
        if (report.Stopped)
            break;
        if (one)
            ++report.Written;
        else
            report.Refused.push_back({from, one.error().Reason});
        if (one && !*one)
            report.EndEarly << from;
    }
    return report;
}
