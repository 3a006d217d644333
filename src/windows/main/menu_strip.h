#pragma once

#include <QWidgetAction>

/// The title entry at the top of a menu: the menu's caption on a gradient. It cannot be chosen.
class MenuStrip : public QWidgetAction
{
    Q_OBJECT

public:
    MenuStrip(const QString& control, const QString& caption, QObject* parent);

    void Show(bool on);

protected:
    QWidget* createWidget(QWidget* parent) override;
};
