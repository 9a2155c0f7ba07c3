// SPDX-License-Identifier: MIT
#include "qt/EntryGuard.h"

#include <QMetaEnum>

namespace planview {

std::string_view eventName(QEvent::Type type) noexcept {
    const char* const name = QMetaEnum::fromType<QEvent::Type>().valueToKey(type);
    return name ? name : "Event";
}

}  // namespace planview
