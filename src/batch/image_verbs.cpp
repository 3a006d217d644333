#include "batch/image_verbs.h"

#include "batch/parsed_arguments.h"
#include "graphics/convert_pictures.h"
#include "graphics/make_film_sheet.h"
#include "platform/files/paths.h"
#include "platform/images/bitmap_file.h"
#include "platform/images/image_kinds.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace {

/// A number that an option gives, within bounds; nothing for one outside, and `otherwise` without the option.
std::optional<int> NumberOf(const ParsedArguments& parsed, const char* name, int least, int most, int otherwise)
{
    if (!parsed.Has(name))
        return otherwise;
    bool isNumber = false;
    const int number = parsed.Options.value(QLatin1StringView(name)).toInt(&isNumber);
    return isNumber && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

QString BadNumber(const char* name, int least, int most)
{
    return QStringLiteral("%1 wants a number from %2 to %3").arg(QLatin1StringView(name)).arg(least).arg(most);
}

bool EndsIn(const QString& path, std::initializer_list<int> kinds)
{
    return std::ranges::find(kinds, ImageKindOfName(path)) != kinds.end();
}

constexpr std::pair<const char*, films::Fit> FitWords[] = {{"whole", films::Fit::Whole},
                                                           {"middle", films::Fit::Middle}};

/// --fit: "whole", "middle" or a part as X,Y,WIDTH,HEIGHT.
std::optional<films::Plan> FitOf(const ParsedArguments& parsed)
{
    films::Plan plan;
    if (!parsed.Has("--fit"))
        return plan;
    const QString word = parsed.Options.value(QStringLiteral("--fit"));
    for (const auto& [name, fit] : FitWords)
        if (word == QLatin1StringView(name)) {
            plan.How = fit;
            return plan;
        }
    const QStringList numbers = word.split(u',');
    quint32* const targets[] = {&plan.X, &plan.Y, &plan.Width, &plan.Height};
    if (numbers.size() != std::ssize(targets))
        return {};
    for (int i = 0; i < 4; ++i) {
        bool isNumber = false;
        *targets[i] = numbers.at(i).toUInt(&isNumber);
        if (!isNumber || *targets[i] > film::LongestSide - 1 || (i > 1 && *targets[i] == 0))
            return {};
    }
    plan.How = films::Fit::Part;
    return plan;
}

/// Reads what film and sheet have in common. Nothing, and it is told, for a wrong call.
std::optional<FilmPlan> PlanOf(const char* verb, const ParsedArguments& parsed, VerbStreams& streams)
{
    const auto tiles = NumberOf(parsed, "--tiles", 1, MostTilesAcross, 16);
    const auto fit = FitOf(parsed);
    const QString wrong = !parsed.Wrong.isEmpty() ? parsed.Wrong
                          : !tiles                ? BadNumber("--tiles", 1, MostTilesAcross)
                          : !fit ? QStringLiteral("--fit wants \"whole\", \"middle\" or X,Y,WIDTH,HEIGHT")
                                 : QString();
    if (wrong.isEmpty())
        return FilmPlan{.Tiles = *tiles, .IgnoreDups = !parsed.Has("--keep-repeats"), .Frames = *fit};
    WrongUsage(verb, wrong, streams);
    return {};
}

QString WhyNoSheet(const FilmReport& report)
{
    if (!report.Reason.isEmpty())
        return report.Reason;
    switch (report.How) {
    case films::End::WrongSize:
        return QStringLiteral("Its frames are %1 by %2 pixels, not 32 by 32 (see --fit).")
            .arg(report.Told.Width)
            .arg(report.Told.Height);
    case films::End::NoDecoder:
        return QStringLiteral("No suitable decompressor was found for its pictures.");
    default:
        return QStringLiteral("It is no film that can be read.");
    }
}

Result<> WriteSheet(const QString& path, const QImage& sheet)
{
    return ImageKindOfName(path) == WindowsBitmapKind ? paths::WriteWhole(path, BitmapFile(sheet))
                                                      : WritePicture(path, sheet, PcxDepth::Full);
}

/// A sheet that is full and a film that is not whole end with 1: what could be read is there.
VerbResult Finish(const QString& out, const FilmReport& report, VerbStreams& streams)
{
    if (const Result<> written = WriteSheet(out, report.Sheet); !written)
        return Failed(written.error(), streams);
    streams.Out << out << ": " << report.Tiles << " tiles of " << report.Frames << " frames, " << report.Sheet.width()
                << " by " << report.Sheet.height() << '\n';
    if (report.Full)
        streams.Err << out << ": the sheet is full, further frames are left out\n";
    if (report.Incomplete)
        streams.Err << out << ": the film tells of " << report.Told.Length << " frames, not all can be read\n";
    if (report.How == films::End::Broken)
        streams.Err << out << ": the film breaks off\n";
    return report.Full || report.Incomplete || report.How == films::End::Broken ? VerbFound : VerbDone;
}

constexpr auto SheetKinds = {WindowsBitmapKind, PaintbrushKind, NetworkGraphicsKind};
const QString FilmSheetEndings = QStringLiteral("the sheet's name must end in .bmp, .pcx or .png");

} // namespace

VerbResult PcxVerb(const QStringList& arguments, VerbStreams& streams)
{
    const ParsedArguments parsed = ParseArguments(arguments, {{"--colours", true}, {"--neuquant", false}});
    const auto colours = NumberOf(parsed, "--colours", 2, 256, 256);
    if (!parsed.Wrong.isEmpty() || !colours || parsed.Plain.size() != 2)
        return WrongUsage("pcx",
                          !parsed.Wrong.isEmpty() ? parsed.Wrong
                          : !colours              ? BadNumber("--colours", 2, 256)
                                                  : QStringLiteral("two files are wanted"),
                          streams);
    const QString out = parsed.Plain.at(1);
    if (!EndsIn(out, {PaintbrushKind, NetworkGraphicsKind}))
        return WrongUsage("pcx", QStringLiteral("the name of OUT must end in .pcx or .png"), streams);
    ConversionPlan plan{.Form = FormOfName(out)};
    if (parsed.Has("--colours") || parsed.Has("--neuquant"))
        plan.Fewer =
            images::Reduction{.Colours = quint32(*colours),
                              .Method = parsed.Has("--neuquant") ? images::Quantizer::NeuQuant : images::Quantizer::Wu,
                              .KeepBlack = true};
    const QString in = parsed.Plain.at(0);
    const Result<bool> done = ConvertPicture(in, out, plan);
    if (!done)
        return Failed(done.error(), streams);
    if (!*done)
        streams.Err << in << ": the image file ends early\n";
    return *done ? VerbDone : VerbFound;
}

VerbResult FilmVerb(const QStringList& arguments, VerbStreams& streams)
{
    const ParsedArguments parsed =
        ParseArguments(arguments, {{"--tiles", true}, {"--keep-repeats", false}, {"--fit", true}});
    const auto plan = PlanOf("film", parsed, streams);
    if (!plan)
        return VerbFailed;
    if (parsed.Plain.size() != 2)
        return WrongUsage("film", QStringLiteral("a film and the sheet's name are wanted"), streams);
    const QString film = parsed.Plain.at(0), out = parsed.Plain.at(1);
    if (!EndsIn(out, SheetKinds))
        return WrongUsage("film", FilmSheetEndings, streams);
    const FilmReport report = SheetFromFilm(film, *plan);
    return report.Sheet.isNull() ? Failed({film, WhyNoSheet(report)}, streams) : Finish(out, report, streams);
}

VerbResult SheetVerb(const QStringList& arguments, VerbStreams& streams)
{
    const ParsedArguments parsed =
        ParseArguments(arguments, {{"--tiles", true}, {"--drop-repeats", false}, {"--fit", true}});
    auto plan = PlanOf("sheet", parsed, streams);
    if (!plan)
        return VerbFailed;
    if (parsed.Plain.size() < 2)
        return WrongUsage("sheet", QStringLiteral("the sheet's name and pictures are wanted"), streams);
    const QString out = parsed.Plain.at(0);
    if (!EndsIn(out, SheetKinds))
        return WrongUsage("sheet", FilmSheetEndings, streams);
    plan->IgnoreDups = parsed.Has("--drop-repeats");
    QStringList files;
    for (const QString& told : parsed.Plain.sliced(1))
        files << (QFileInfo(told).isDir() ? PicturesIn(told) : QStringList{told});
    const FilmReport report = SheetFromPictures(files, *plan);
    for (const Failure& refused : report.Refused)
        Failed(refused, streams);
    if (!report.Refused.empty() || report.Sheet.isNull())
        return report.Refused.empty() ? Failed({out, QStringLiteral("There are no pictures.")}, streams) : VerbFailed;
    return Finish(out, report, streams);
}
