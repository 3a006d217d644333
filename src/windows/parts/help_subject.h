#pragma once

#include <QAction>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

/// The help page of a part of the window; parts inside it share it unless they have their own.
void SetHelpSubject(QWidget* part, const QString& id);

/// The same for an entry of a menu.
void SetHelpSubject(QAction* entry, const QString& id);
QString HelpSubjectOf(const QAction& entry);

/// HelpId of the part at hand: the nearest widget upward, its window included, that has one; a null text if none has.
QString HelpSubjectOf(const QWidget* part);

/// The help page of a part of the main window: "H_main_" + its key.
QString HelpIdFor(const char* key);

/// Of a window that swallows F1.
inline const QString NoHelpSubject = QStringLiteral("-");

/// What the pane's own mouse move stores: the word at the caret decides then.
inline const QString TextSubject = QStringLiteral("TEXT");
inline const QString CommentSubject = QStringLiteral("H_main_gotocomment");
inline const QString BlockSubject = QStringLiteral("H_main_goto_block");
inline const QString RecentSubject = QStringLiteral("H_main_recentlist");

/// Keeps HelpId, the subject under the mouse, for one window. It watches mouse moves of the application, which costs
/// nothing while the mouse rests.
class HelpSubject : public QObject
{
    Q_OBJECT

public:
    explicit HelpSubject(QWidget* window);

    QString HelpId() const { return helpId; }

signals:
    void Moved(const QString& helpId); ///< at each move over a part that has a subject

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> window;
    QString helpId;
};
