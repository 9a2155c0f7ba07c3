// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QCoreApplication>
#include <QStringList>

#include "qt/AssistiveTools.h"

namespace planview {

/// What assistive tools hear from here on, without a bus: "focus Cell 3,5", "selected Cell 3,5".
class Spoken {
public:
    Spoken() {
        heard().clear();
        listenForTools([](QAccessibleEvent& event) { take(event); });
    }
    ~Spoken() { listenForTools(nullptr); }
    Spoken(const Spoken&) = delete;
    Spoken& operator=(const Spoken&) = delete;

    /// What was heard of one kind since the last question, the others being forgotten.
    static QString of(const QString& kind) {
        QCoreApplication::processEvents();
        QStringList lines;
        for (const QString& line : heard()) {
            if (line.startsWith(kind + QLatin1Char(' '))) {
                lines << line.mid(kind.size() + 1);
            }
        }
        heard().clear();
        return lines.join(QStringLiteral("; "));
    }

private:
    static QStringList& heard() {
        static QStringList lines;
        return lines;
    }
    static void take(QAccessibleEvent& event) {
        QAccessibleInterface* about = event.accessibleInterface();
        if (!about || !about->isValid()) {
            return;
        }
        const QString name = about->text(QAccessible::Name);
        switch (event.type()) {
            case QAccessible::Focus:
                heard() << QStringLiteral("focus ") + name;
                break;
            case QAccessible::SelectionAdd:
                heard() << QStringLiteral("selected ") + name;
                break;
            case QAccessible::SelectionRemove:
                heard() << QStringLiteral("deselected ") + name;
                break;
            case QAccessible::NameChanged:
                heard() << QStringLiteral("renamed ") + name;
                break;
            case QAccessible::ValueChanged:
                heard() << QStringLiteral("value ") + name + QLatin1Char('=') + about->text(QAccessible::Value);
                break;
            case QAccessible::ObjectShow:
                if (about->role() == QAccessible::Notification) {
                    heard() << QStringLiteral("notice ") + name;
                }
                break;
            default:
                break;
        }
    }
};

}  // namespace planview
