#pragma once

#include <QObject>
#include <QString>

class EditorPane;
struct RecoveredText;

/// Keeps copies of the unsaved code of a workbench while it is open, as the texts of tabs are kept.
class KeptCode : public QObject
{
public:
    explicit KeptCode(EditorPane& code);
    ~KeptCode() override;

    void BelongsTo(const QString& macro); ///< a macro's file; empty: none yet

    /// The code leaves its pane. The user has let go what is unsaved of it: "Reopen Closed Tab" brings it back.
    void GiveUp();
    /// The program ends: the next start offers the code. False: it is kept nowhere.
    bool KeepForNextStart();
    /// Puts kept code in place of what stands there, so that undo shows that again; the old copy goes once a new one is
    /// written.
    void TakeBack(const RecoveredText& kept);

private:
    void Changed();

    EditorPane& code;
};
