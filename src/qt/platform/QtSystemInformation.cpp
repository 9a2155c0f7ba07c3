// SPDX-License-Identifier: MIT
#include "qt/platform/QtSystemInformation.h"

#include <QLocale>

#include "platform/LinuxSystem.h"

namespace planview {

std::optional<MemoryStatus> QtSystemInformation::Memory() const {
    return LinuxMemoryStatus();
}

std::optional<int> QtSystemInformation::PlatformId() const {
    return LinuxPlatformId();
}

std::string QtSystemInformation::LogFolder() const {
    return LinuxLogFolder();
}

char QtSystemInformation::DecimalMark() const {
    return QLocale().decimalPoint() == QLatin1String(",") ? ',' : '.';
}

}  // namespace planview
