// SPDX-License-Identifier: MIT
#pragma once

#include <planview/Platform.h>

namespace planview {

/// What Linux and the user's Qt locale say.
class QtSystemInformation final : public SystemInformation {
public:
    [[nodiscard]] std::optional<MemoryStatus> Memory() const override;
    [[nodiscard]] std::optional<int> PlatformId() const override;
    [[nodiscard]] std::string LogFolder() const override;
    [[nodiscard]] char DecimalMark() const override;
};

}  // namespace planview
