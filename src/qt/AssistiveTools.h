// SPDX-License-Identifier: MIT
#pragma once

class QAccessibleEvent;
class QString;
class QWidget;

namespace planview {

/// Whether a screen reader or another assistive tool listens.
[[nodiscard]] bool toolsListen();
/// Tells them of an event; nothing where none listens.
void tellTools(QAccessibleEvent& event);

/// Has a screen reader speak a sentence, where one runs; nothing is seen of it. `from` says in which window.
void announce(const QWidget& from, const QString& sentence);

/// Hears what assistive tools would be told, in their place; null ends that. For tests: Qt's platform without a screen
/// has no bus.
void listenForTools(void (*listener)(QAccessibleEvent& event));

}  // namespace planview
