#include "grid/CellText.h"

#include "automation/Numbers.h"
#include "trace/modPlan.h"

namespace planview {

std::string CellText(const Variant& value) {
    const std::string* text = value.TextIf();
    if (value.IsEmpty() || (text && text->empty())) {
        return {};
    }
    return modPlan::ReplacePoint(NumberText(ParseNumber(value)));
}

}  // namespace planview
