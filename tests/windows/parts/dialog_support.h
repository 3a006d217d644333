#pragma once

#include "test_support.h"

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

/// Runs `act` on the modal window that the next call opens, once it is shown, and closes it if it is open still.
inline void OnModal(std::function<void(QWidget&)> act)
{
    QTimer::singleShot(0, qApp, [act = std::move(act)] {
        QWidget* modal = QApplication::activeModalWidget();
        ASSERT_NE(modal, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(modal));
        const QPointer<QWidget> open = modal;
        act(*modal);
        if (open && open->isVisible())
            open->close();
    });
}

template <class Widget>
Widget& Part(QWidget& window, const char* name)
{
    auto* part = window.findChild<Widget*>(QString::fromLatin1(name));
    if (!part)
        qFatal("no part %s", name);
    return *part;
}
