#pragma once

#include "frame/run_scope.h"
#include "platform/processes/counted_turn.h"
#include "platform/result.h"

#include <QDialog>
#include <QTimer>
#include <functional>

class QLabel;
class QProgressBar;

/// Asks for patience while files go into an archive or come out of one. Esc and the close box stop that.
class frmZip : public QDialog
{
    Q_OBJECT

public:
    enum Mode { Zip, Unzip };
    using Work = std::function<Result<>(const CountedTurn& turn)>;

    frmZip(Mode mode, const Work& work, QWidget* parent);

    /// Shows the window, does the work, closes it.
    static Result<> Run(Mode mode, const Work& work, QWidget* parent);

    QLabel* lblZip() const { return label; }
    QProgressBar* Bar() const { return bar; }

    void reject() override;

private:
    void Start();

    const Mode mode;
    const Work& work;
    QLabel* label;
    QProgressBar* bar;
    QTimer tmrStart;
    bool working = false;
    Result<> outcome;
};
