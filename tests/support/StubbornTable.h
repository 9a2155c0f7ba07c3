// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include <planview/MemoryTable.h>

namespace planview::test {

/// A host's table that takes no value into one of its rows.
class StubbornTable final : public AutomationObject {
public:
    explicit StubbornTable(std::shared_ptr<MemoryTable> inner, std::int32_t stubbornRow = 0,
                           std::string stubbornField = {})
        : row(stubbornRow), field(std::move(stubbornField)), inner_(std::move(inner)) {}

    DispatchId IdOf(std::string_view name) const override { return inner_->IdOf(name); }
    Variant Get(DispatchId member, Arguments a) override { return inner_->Get(member, a); }
    void Put(DispatchId member, Arguments a, const Variant& value) override {
        if (a[0].AsInt32() == row && (field.empty() || a[1].AsText() == field)) {
            throw std::runtime_error("locked");
        }
        inner_->Put(member, a, value);
    }
    Variant Call(DispatchId member, Arguments a) override { return inner_->Call(member, a); }

    std::int32_t row;   ///< 0: it takes everything
    std::string field;  ///< empty: any

private:
    std::shared_ptr<MemoryTable> inner_;
};

}  // namespace planview::test
