#pragma once

#include <QAction>
#include <QList>
#include <QObject>

class QMenu;
class QToolBar;

/// Up to ten macros as entries of a menu and buttons of a tool bar, from the section `Macro Buttons` of user.ini:
/// FileN, IconN (one of the program's icons, or an image file) and CaptionN. An entry whose file is missing is greyed.
/// Each is named as its keys are stored, whatever its place.
class MacroButtons : public QObject
{
    Q_OBJECT

public:
    explicit MacroButtons(QObject* parent) : QObject(parent) {}

    /// Reads the section and puts the entries behind what stands there; those of an earlier call go.
    void Load(QMenu& menu, QToolBar& bar);
    void Look();     ///< the files may have come or gone
    void TakeKeys(); ///< those that the user has given to the entries
    const QList<QAction*>& Entries() const { return entries; }

signals:
    void Wanted(const QString& path); ///< of a macro's file

private:
    QList<QAction*> entries;
    QAction* separator = nullptr;
};
