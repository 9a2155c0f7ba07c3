// SPDX-License-Identifier: MIT
#include "qt/AssistiveTools.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>
#include <array>
#include <cstddef>

namespace planview {

namespace {

void (*inTheirPlace)(QAccessibleEvent& event) = nullptr;

/// Screen readers speak an object of the role Notification when it comes on screen, and stay silent on alerts and
/// tooltips. This one is a widget without a size.
class Notification final : public QWidget {
public:
    explicit Notification(QWidget* parent) : QWidget(parent) {}

    void say(const QString& sentence) {
        setAccessibleName(sentence);
        QAccessibleEvent appears(this, QAccessible::ObjectShow);
        tellTools(appears);
    }
};

/// The notifications of a window, in turn: whoever hears of one asks for its text only later, when others may have
/// followed.
class Announcer final : public QWidget {
public:
    explicit Announcer(QWidget* window) : QWidget(window) {
        setObjectName(QStringLiteral("Announcer"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        for (Notification*& each : notifications_) {
            each = new Notification(this);
        }
        resize(0, 0);
        show();
    }

    static Announcer& of(QWidget& window) {
        for (QObject* const child : window.children()) {
            if (auto* known = dynamic_cast<Announcer*>(child)) {
                return *known;
            }
        }
        return *new Announcer(&window);
    }

    void say(const QString& sentence) {
        notifications_[next_]->say(sentence);
        next_ = (next_ + 1) % notifications_.size();
    }

private:
    std::array<Notification*, 8> notifications_{};
    std::size_t next_ = 0;
};

QAccessibleInterface* makeNotification(const QString& /*className*/, QObject* object) {
    auto* notification = dynamic_cast<Notification*>(object);
    return notification ? new QAccessibleWidget(notification, QAccessible::Notification) : nullptr;
}

}  // namespace

bool toolsListen() {
    return inTheirPlace || QAccessible::isActive();
}

void tellTools(QAccessibleEvent& event) {
    if (inTheirPlace) {
        inTheirPlace(event);
    } else {
        QAccessible::updateAccessibility(&event);
    }
}

void listenForTools(void (*listener)(QAccessibleEvent& event)) {
    inTheirPlace = listener;
}

void announce(const QWidget& from, const QString& sentence) {
    if (!toolsListen() || sentence.isEmpty()) {
        return;
    }
    static const bool installed = [] {
        QAccessible::installFactory(makeNotification);
        return true;
    }();
    static_cast<void>(installed);
    Announcer::of(*from.window()).say(sentence);
}

}  // namespace planview
