#pragma once

#include <QTreeWidget>

/// TreeMacro: the macros of the program's folder. A name that begins with "$" and a letter is shown with its key.
class MacroTree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit MacroTree(QWidget* parent = nullptr);

    void BuildMacroTree(); ///< from the list of macro files; the selected macro stays selected
    void SetStyle();
    int SelectedRow() const;      ///< -1: none
    QString SelectedPath() const; ///< of the selected macro's file; empty: none
    void SelectRow(int row);

signals:
    void Pressed();
    void Started(const QString& path); ///< double click or Enter: it is to run
    void Opened(const QString& path);  ///< right button: it is to be looked at

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void StartSelected();
};
