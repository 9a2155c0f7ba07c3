// SPDX-License-Identifier: MIT
#include <algorithm>

#include "qt/PlanViewState.h"

// The members of the control, each passed on as it is.

namespace planview {

namespace {

bool isTable(std::string_view name) {
    const std::span<const std::string_view> names = TableNames();
    return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

#define PLANVIEW_METHOD(NAME)                                            \
    short PlanViewWidget::NAME() {                                       \
        return state_->call([](PlanView& view) { return view.NAME(); }); \
    }
#define PLANVIEW_TEXT_METHOD(NAME, ARGUMENT)                                                    \
    short PlanViewWidget::NAME(const QString& ARGUMENT) {                                       \
        return state_->call([&](PlanView& view) { return view.NAME(ARGUMENT.toStdString()); }); \
    }
#define PLANVIEW_GETTER(NAME, TABLE)                                     \
    ObjectRef PlanViewWidget::NAME() {                                   \
        return state_->call([](PlanView& view) { return view.NAME(); }); \
    }
#define PLANVIEW_SETTER(NAME, TABLE)                                           \
    short PlanViewWidget::NAME(const ObjectRef& table) {                       \
        return state_->call([&](PlanView& view) { return view.NAME(table); }); \
    }
#include "control/Members.def"

ObjectRef PlanViewWidget::table(const QString& name) {
    return state_->call([&](PlanView& view) {
        const std::string plainName = name.toStdString();
        return isTable(plainName) ? view.GetTable(plainName) : nullptr;
    });
}

bool PlanViewWidget::setTable(const QString& name, const ObjectRef& table) {
    return state_->call([&](PlanView& view) {
        const std::string plainName = name.toStdString();
        return isTable(plainName) && view.SetTable(plainName, table) == 0;
    });
}

}  // namespace planview
