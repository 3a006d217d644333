#pragma once

#include <QAbstractButton>

/// A square of one colour. A click or the blank key opens the colour dialog on it.
class ColourSquare : public QAbstractButton
{
    Q_OBJECT

public:
    ColourSquare(const QString& name, const QString& meaning, QWidget* parent);

    const QString& Meaning() const { return meaning; }
    int Colour() const { return colour; } ///< 0x00BBGGRR
    void SetColour(int bgr);

    QSize sizeHint() const override;

signals:
    void Chosen(int bgr); ///< in the dialog; the square itself is the listener's to set

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void AskColour();

    QString meaning;
    int colour = 0;
};
