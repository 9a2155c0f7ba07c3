// SPDX-License-Identifier: MIT
#include <array>
#include <span>

#include "components/chart/ChartMembers.h"

namespace planview::chart {

namespace {

using Arguments = AutomationObject::Arguments;

/// One cell of the data sheet. Row 1 holds the captions of the series, column 1 those of the categories (the other way
/// round where the series stand in rows); the corner holds nothing.
class SheetCell final : public Object<SheetCell> {
public:
    SheetCell(std::shared_ptr<ChartModel> model, std::int32_t category, std::int32_t series)
        : Object(std::move(model)), category_(category), series_(series) {}
    static constexpr std::string_view ObjectName = "The cell";

    static Variant GetValue(SheetCell& self, Arguments) {
        ChartState& state = self.Model().state;
        self.Check();
        if (self.category_ == 0) {
            return self.series_ == 0 ? Variant() : Variant(self.Model().SeriesAt(self.series_).caption);
        }
        const auto category = static_cast<std::size_t>(self.category_) - 1;
        return self.series_ == 0 ? Variant(state.categories[category])
                                 : Variant(self.Model().SeriesAt(self.series_).values[category]);
    }

    static void PutValue(SheetCell& self, Arguments, const Variant& value) {
        ChartState& state = self.Model().state;
        self.Check();
        const auto category = static_cast<std::size_t>(self.category_) - 1;
        if (self.category_ == 0 && self.series_ == 0) {
            throw AutomationError(AutomationErrorCode::Failed, "The corner of the data sheet holds no value");
        }
        if (self.category_ == 0) {
            self.Model().SeriesAt(self.series_).caption = value.AsText();
        } else if (self.series_ == 0) {
            state.categories[category] = value.AsText();
        } else {
            self.Model().SeriesAt(self.series_).values[category] = FromVariant<double>(value);
        }
        self.Model().Touch();
    }

    static std::span<const Member> Members() {
        static constexpr std::array Table{Member{"Value", DefaultMember, &GetValue, &PutValue}};
        return Table;
    }

private:
    /// The sheet may have become smaller since the cell was asked for.
    void Check() const {
        if (category_ > Model().state.CategoryCount()) {
            ThrowNoSuchIndex("Category", category_, Model().state.CategoryCount());
        }
    }

    std::int32_t category_;  // 0: the captions
    std::int32_t series_;    // 0: the captions
};

class DataSheet final : public Object<DataSheet> {
public:
    using Object::Object;
    static constexpr std::string_view ObjectName = "DataSheet";

    static Variant Cells(DataSheet& self, Arguments arguments) {
        ExpectArguments(arguments, 2, "Cells");
        ChartModel& model = self.Model();
        std::int32_t category = arguments[0].AsInt32();
        std::int32_t series = arguments[1].AsInt32();
        if (model.seriesInRows) {
            std::swap(category, series);
        }
        CheckIndex("Data sheet row or column", category, model.state.CategoryCount());
        CheckIndex("Data sheet row or column", series, model.state.SeriesCount());
        return Variant(std::make_shared<SheetCell>(self.ModelRef(), category - 1, series - 1));
    }

    static std::span<const Member> Members() {
        static constexpr std::array Table{Member{"Cells", 1, &Cells},
                                          Member{"DeleteContents", 2, nullptr, nullptr, [](DataSheet& self, Arguments) {
                                                     self.Model().DeleteContents();
                                                     return Variant();
                                                 }}};
        return Table;
    }

private:
    static void CheckIndex(const char* what, std::int32_t index, std::int32_t dataCount) {
        if (index < 1 || index > dataCount + 1) {
            ThrowNoSuchIndex(what, index, dataCount + 1);
        }
    }
};

}  // namespace

ObjectRef MakeDataSheet(const std::shared_ptr<ChartModel>& model) {
    return std::make_shared<DataSheet>(model);
}

}  // namespace planview::chart
