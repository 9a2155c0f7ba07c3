// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <QtTest>

namespace planview {

/// Runs when the next modal window of this kind is up.
template <class Window, class Action>
void whenShown(Action action) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, action] {
        if (auto* window = qobject_cast<Window*>(QApplication::activeModalWidget())) {
            timer->stop();
            timer->deleteLater();
            const QPointer<QWidget> shown(window);
            action(window);
            if (shown && QTest::currentTestFailed()) {
                shown->close();  // nobody else would
            }
        }
    });
    timer->start(5);
}

/// Saves a picture of the window where the environment asks for pictures (PLANVIEW_PICTURES names the folder).
inline void savePicture(QWidget& window, const QString& name) {
    const QString folder = qEnvironmentVariable("PLANVIEW_PICTURES");
    if (!folder.isEmpty()) {
        window.grab().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
    }
}

}  // namespace planview
