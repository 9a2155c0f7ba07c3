// SPDX-License-Identifier: MIT
#include "qt/platform/QtSystemInformation.h"

#include <QLocale>

#include "platform/System.h"

namespace planview {

std::optional<MemoryStatus> QtSystemInformation::Memory() const {
    return SystemMemory();
}

std::optional<int> QtSystemInformation::PlatformId() const {
    return SystemPlatformId();
}

std::string QtSystemInformation::LogFolder() const {
    return SystemLogFolder();
}

char QtSystemInformation::DecimalMark() const {
    return QLocale().decimalPoint() == QLatin1String(",") ? ',' : '.';
}

}  // namespace planview
