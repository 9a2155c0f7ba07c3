// SPDX-License-Identifier: MIT
#include "platform/Desktop.h"

namespace planview {

Platform Completed(const Platform& given, const Platform& others) noexcept {
    const auto chosen = [](auto* piece, auto* other) { return piece ? piece : other; };
    return {.messageBoxes = chosen(given.messageBoxes, others.messageBoxes),
            .forms = chosen(given.forms, others.forms),
            .clipboard = chosen(given.clipboard, others.clipboard),
            .system = chosen(given.system, others.system),
            .popups = chosen(given.popups, others.popups),
            .fileDialogs = chosen(given.fileDialogs, others.fileDialogs),
            .objects = chosen(given.objects, others.objects),
            .progress = chosen(given.progress, others.progress)};
}

}  // namespace planview
