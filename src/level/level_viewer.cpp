#include "level/level_viewer.h"

#include "level/level_record.h"
#include "services/registry.h"
#include "services/registry_store.h"

#include <QCoreApplication>

namespace {

const QString HandOver = QStringLiteral("Software\\GemforgeBASIC\\[LevelReturn]");
const QString Wanted = QStringLiteral("levviewmode");
const QString Cancel = QStringLiteral("cancel");

/// No rectangle was drawn.
constexpr int NoCorner = -1;

/// The values of the hand-over.
class HandOverKey
{
public:
    explicit HandOverKey(RegistryStore& store) : key(store)
    {
        key.ClassKey = registry::CurrentUser;
        key.SectionKey = HandOver;
    }

    QString Text(const QString& name)
    {
        key.ValueKey = name;
        key.Default = QString();
        return key.Value().toString();
    }
    void Put(const QString& name, const QString& value)
    {
        if (!written)
            return;
        key.ValueKey = name;
        key.ValueType = registry::Text;
        const RegistryResult<> done = key.SetValue(value);
        if (!done)
            written = tl::unexpected(done.error().Why);
    }
    Result<> Written() const { return written; }

private:
    cRegistry key;
    Result<> written;
};

/// A corner's name and its coordinate, which counts from 1 outside.
constexpr std::pair<const char*, qint32 LevelBox::*> Corners[] = {
    {"bx1", &LevelBox::X1}, {"by1", &LevelBox::Y1}, {"bx2", &LevelBox::X2}, {"by2", &LevelBox::Y2}};

void PutAnswer(HandOverKey& key, const ViewAnswer& answer)
{
    key.Put(Cancel, answer.Cancelled ? QStringLiteral("1") : QStringLiteral("0"));
    for (const auto& [name, corner] : Corners)
        key.Put(QString::fromLatin1(name), QString::number(answer.Box ? *answer.Box.*corner + 1 : NoCorner));
}

} // namespace

Result<> AskViewer(RegistryStore& store, const ViewRequest& request)
{
    HandOverKey key(store);
    PutAnswer(key, {}); // a viewer that is killed leaves no answer, and no old one counts
    key.Put(QStringLiteral("message"), request.Message);
    key.Put(QStringLiteral("memview"), request.Palette);
    key.Put(Wanted, QStringLiteral("true"));
    return key.Written();
}

Result<ViewAnswer> TakeViewAnswer(RegistryStore& store)
{
    HandOverKey key(store);
    key.Put(Wanted, QStringLiteral("false"));
    if (const Result<> done = key.Written(); !done)
        return tl::unexpected(done.error());
    ViewAnswer answer;
    answer.Cancelled = key.Text(Cancel).toInt() == 1;
    LevelBox box;
    for (const auto& [name, corner] : Corners) {
        bool number = false;
        const int told = key.Text(QString::fromLatin1(name)).toInt(&number);
        if (!number || told == NoCorner)
            return answer;
        box.*corner = told - 1;
    }
    answer.Box = box;
    return answer;
}

std::optional<ViewRequest> TakeViewRequest(RegistryStore& store)
{
    HandOverKey key(store);
    if (key.Text(Wanted) != QLatin1StringView("true"))
        return std::nullopt;
    const ViewRequest request{key.Text(QStringLiteral("message")), key.Text(QStringLiteral("memview"))};
    key.Put(Wanted, QStringLiteral("false"));
    return request;
}

Result<> AnswerView(RegistryStore& store, const ViewAnswer& answer)
{
    HandOverKey key(store);
    PutAnswer(key, answer);
    return key.Written();
}

QString ViewerProgram()
{
    return Level.Viewer.isEmpty() ? QCoreApplication::applicationDirPath() + QStringLiteral("/Mapglass") : Level.Viewer;
}
