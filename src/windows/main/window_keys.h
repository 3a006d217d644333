#pragma once

#include <QKeySequence>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QWidget>
#include <functional>

/// The main window sees every key before the part that has the focus, also while it is disabled.
class WindowKeys : public QObject
{
    Q_OBJECT

public:
    explicit WindowKeys(QWidget* window);

    /// A key of the window that no part must claim for itself.
    void Claim(const QKeySequence& key);
    /// Keys of commands that the text pane must not claim for itself, and those that no part must; in place of those
    /// before.
    void ClaimForCommands(QSet<QKeySequence> overText, QSet<QKeySequence> overAll);

    /// Does Alt with this character start a macro? Then it comes before menus.
    std::function<bool(QChar)> TakesAlt;

signals:
    void EscapePressed();       ///< eaten
    void AltPressed(QChar key); ///< one that TakesAlt, eaten
    void HelpPressed();         ///< F1 with any shift state, eaten
    void InsertPressed();       ///< Insert alone, eaten
    void LocksChanged();
    void MenuPressed(QWidget* part); ///< the key that opens the menu of the part with the focus

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Pressed(QWidget* part, const QKeyEvent& key);
    bool IsClaimed(const QWidget* part, const QKeyEvent& key) const;
    QChar AltKey(const QKeyEvent& key) const; ///< null: none that starts a macro

    QPointer<QWidget> window;
    QSet<QKeySequence> claimed, claimedOverText, claimedOverAll;
};
