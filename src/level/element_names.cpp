#include "level/element_names.h"

#include "frame/frame_state.h"
#include "level/level_record.h"
#include "platform/files/paths.h"

namespace {

constexpr qsizetype HeadLines = 2; // section, Count

} // namespace

QString ElementNames::Key(const QString& name)
{
    return name.toLower().replace(u'.', u'_');
}

ElementNames::ElementNames(QByteArrayView ini)
{
    const QStringList lines = QString::fromUtf8(ini).split(u'\n');
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const qsizetype equals = lines.at(i).indexOf(u'=');
        if (equals < 0)
            continue;
        const QString name = lines.at(i).first(equals).trimmed();
        values.insert(Key(name), lines.at(i).sliced(equals + 1).trimmed());
        if (i < HeadLines)
            continue;
        // The place of the line counts, whatever lines in between may hold.
        while (names.size() < i - HeadLines)
            names << QString();
        numbers.insert(Key(name), int(names.size()));
        names << name;
    }
    highest = values.value(QStringLiteral("count")).toInt();
}

std::optional<QString> ElementNames::Value(const QString& name) const
{
    const auto found = values.constFind(Key(name));
    return found == values.constEnd() ? std::nullopt : std::optional(*found);
}

std::optional<int> ElementNames::Number(const QString& name) const
{
    const auto found = numbers.constFind(Key(name));
    return found == numbers.constEnd() ? std::nullopt : std::optional(*found);
}

const ElementNames& NamesOfElements()
{
    if (!Level.Names) {
        constexpr qint64 LargestTable = qint64(4) << 20;
        const Result<QByteArray> ini = paths::ReadWhole(Frame.DataFolder + QStringLiteral("mapele.ini"), LargestTable);
        Level.Names = std::make_shared<ElementNames>(ini ? *ini : QByteArray());
    }
    return *Level.Names;
}
