#pragma once

#include <QByteArrayView>
#include <QStringList>
#include <QWidget>
#include <optional>
#include <vector>

class QPlainTextEdit;

/// A row of two texts beside each other. A side that is missing is blank; a gap stands for equal lines left out.
struct ComparedRow
{
    QString Left, Right;
    bool HasLeft = true, HasRight = true, Gap = false;
    bool Differs() const { return !Gap && (!HasLeft || !HasRight || Left != Right); }
};

/// The lines that differ, each place with some equal ones around it. Nothing if the texts have too little in common.
std::optional<std::vector<ComparedRow>> CompareSideBySide(QByteArrayView before, QByteArrayView after);

/// Two panes that scroll together and show such rows.
class SideBySide : public QWidget
{
    Q_OBJECT

public:
    explicit SideBySide(QWidget* parent);

    void Show(const std::vector<ComparedRow>& rows);
    QPlainTextEdit* Side(int side) const { return sides[side]; } ///< 0 before, 1 after

private:
    void ScrollTogether();

    QPlainTextEdit* sides[2];
};
