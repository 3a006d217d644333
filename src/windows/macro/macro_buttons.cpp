#include "windows/macro/macro_buttons.h"

#include "frame/frame_state.h"
#include "frame/settings/shortcuts.h"
#include "platform/files/paths.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QToolBar>
#include <QUrl>

namespace {

constexpr int MostButtons = 10;

QString ButtonSetting(const char* key, int number)
{
    const QString value =
        ReadIni(QStringLiteral("Macro Buttons"), QLatin1String(key) + QString::number(number)).trimmed();
    return value == QLatin1String("[NOT FOUND]") ? QString() : value;
}

/// A name without a folder stands for a macro of the list.
QString MacroPathOf(const QString& told)
{
    const QString inner = paths::Inside(told);
    return QDir::isRelativePath(inner) ? QString(Frame.MacrosFolder + inner) : inner;
}

/// A key of user.ini, which no "=" may break.
QString KeyId(const QString& told)
{
    return QStringLiteral("macro ") + QString::fromLatin1(QUrl::toPercentEncoding(paths::Inside(told), "/"));
}

QIcon IconOf(const QString& told)
{
    if (told.isEmpty())
        return ListImage(QStringLiteral("macro"), 1);
    const QString file = paths::Existing(told);
    return file.isEmpty() ? CommandIcon(told) : QIcon(file);
}

} // namespace

void MacroButtons::Load(QMenu& menu, QToolBar& bar)
{
    qDeleteAll(entries);
    entries.clear();
    delete std::exchange(separator, nullptr);
    for (int number = 1; number <= MostButtons; ++number) {
        const QString told = ButtonSetting("File", number);
        if (told.isEmpty())
            continue;
        const QString path = MacroPathOf(told), caption = ButtonSetting("Caption", number);
        auto* entry =
            new QAction(IconOf(ButtonSetting("Icon", number)),
                        WithoutMnemonic(caption.isEmpty() ? QFileInfo(path).completeBaseName() : caption), this);
        entry->setObjectName(KeyId(told));
        entry->setData(path);
        entry->setToolTip(entry->text().replace(QLatin1String("&&"), QLatin1String("&")));
        SetHelpSubject(entry, QStringLiteral("macros"));
        connect(entry, &QAction::triggered, this, [this, path] { emit Wanted(path); });
        entries.append(entry);
    }
    if (!entries.isEmpty())
        separator = menu.addSeparator();
    menu.addActions(entries);
    bar.addActions(entries);
    bar.setVisible(bar.isVisible() || !entries.isEmpty());
    TakeKeys();
    Look();
}

void MacroButtons::TakeKeys()
{
    for (QAction* entry : std::as_const(entries))
        entry->setShortcuts(KeysInForce(entry->objectName(), {}));
}

void MacroButtons::Look()
{
    for (QAction* entry : std::as_const(entries))
        entry->setEnabled(paths::FileExists(entry->data().toString()));
}
