// SPDX-License-Identifier: MIT
#include "automation/Late.h"

namespace planview {

AutomationObject& Late::Object(std::string_view member) const {
    if (value_.GetKind() == Variant::Kind::Nothing) {
        throw AutomationError(AutomationErrorCode::ObjectNotSet, "No object to ask for '" + std::string(member) + "'");
    }
    return *value_.AsObject();
}

}  // namespace planview
