// SPDX-License-Identifier: MIT
#include "components/chart/ChartControl.h"

#include <algorithm>
#include <array>

#include "components/chart/ChartModel.h"

namespace planview {

ChartControl::ChartControl() : model_(std::make_shared<ChartModel>()), object_(MakeChartObject(model_)) {}

ChartControl::~ChartControl() {
    model_->watcher = nullptr;
    model_->events = nullptr;
}

void ChartControl::SetWatcher(ChartWatcher* watcher) noexcept {
    model_->watcher = watcher;
}

void ChartControl::SetEvents(ChartEvents* events) noexcept {
    model_->events = events;
}

const ObjectRef& ChartControl::Object() const noexcept {
    return object_;
}

const ChartState& ChartControl::State() const noexcept {
    return model_->state;
}

std::uint64_t ChartControl::Version() const noexcept {
    return model_->version;
}

void ChartControl::NameSeries(int series, std::string_view key, std::string_view format) {
    model_->NameSeries(series, std::string(key), std::string(format));
}

std::optional<ChartColor> ChartControl::ColorOf(std::string_view key) const {
    const auto found = model_->looks.find(std::string(key));
    return found == model_->looks.end() ? std::nullopt : std::optional(found->second->color);
}

void ChartControl::SetGuidance(std::string guidance) {
    if (model_->state.guidance != guidance) {
        model_->state.guidance = std::move(guidance);
        model_->Touch();
    }
}

void ChartControl::SetComparison(int base) {
    if (model_->state.comparisonBase != base) {
        model_->state.comparisonBase = base;
        model_->Touch();
    }
}

void ChartControl::NameComparedLines(std::string sales, std::string forecast) {
    ChartState& state = model_->state;
    if (state.salesKey != sales || state.forecastKey != forecast) {
        state.salesKey = std::move(sales);
        state.forecastKey = std::move(forecast);
        model_->Touch();
    }
}

void ChartControl::CopyPicture() const {
    if (model_->watcher) {
        model_->watcher->CopyPicture();
    }
}

// The listener may destroy the chart: the model is kept alive meanwhile.

void ChartControl::UserPressed(MouseButton button, ShiftState shift, const ChartHit& hit) {
    const std::shared_ptr<ChartModel> model = model_;
    if (model->events) {
        model->events->MouseDown(button, shift, hit);
    }
}

void ChartControl::UserSelected(const ChartHit& hit) {
    const std::shared_ptr<ChartModel> model = model_;
    if (!model->state.allowSelect || hit.series > model->state.SeriesCount()) {
        return;
    }
    model->selected = hit;
    model->selectedKey = hit.series > 0 ? model->SeriesAt(hit.series).key : std::string();
    model->state.selected = hit;
    model->Touch();
    if (model->events) {
        model->events->Selected(hit);
    }
}

bool ChartControl::UserMayChange(int series, int category) {
    const std::shared_ptr<ChartModel> model = model_;
    return model->state.allowValueChange && model->events && model->events->PointMayChange(series, category);
}

void ChartControl::UserChangedPoint(int series, int category, double value) {
    const std::shared_ptr<ChartModel> model = model_;
    if (model->state.allowValueChange && model->events) {
        model->events->PointValueChanged(series, category, value);
    }
}

void ChartControl::UserScrolledTo(int category) {
    const ChartState& state = model_->state;
    const int last = std::max(1, state.CategoryCount() - state.VisibleCount() + 1);
    const auto first = static_cast<std::int16_t>(std::clamp(category, 1, std::min(last, int{INT16_MAX})));
    if (first != state.categoryAxis.startAtCategory) {
        model_->state.categoryAxis.startAtCategory = first;
        model_->Touch();
    }
}

void ChartControl::UserDragged(const std::string& source, bool dropped) {
    const std::shared_ptr<ChartModel> model = model_;
    if (!model->events) {
        return;
    }
    if (dropped) {
        model->events->DragDrop(source);
    } else {
        model->events->Drag(source);
    }
}

void ChartControl::UserFocus(bool got) {
    const std::shared_ptr<ChartModel> model = model_;
    if (!model->events) {
        return;
    }
    if (got) {
        model->events->GotFocus();
    } else {
        model->events->LostFocus();
    }
}

ChartColor ChartPaletteColor(int index) {
    static constexpr std::array<ChartColor, ChartPaletteSize> Palette{{{255, 255, 255},
                                                                       {0, 0, 0},
                                                                       {255, 0, 0},
                                                                       {255, 255, 0},
                                                                       {0, 255, 0},
                                                                       {0, 255, 255},
                                                                       {0, 0, 255},
                                                                       {255, 0, 255},
                                                                       {0, 128, 0},
                                                                       {128, 0, 0},
                                                                       {0, 0, 128},
                                                                       {128, 128, 0},
                                                                       {128, 0, 128},
                                                                       {0, 128, 128},
                                                                       {192, 192, 192},
                                                                       {128, 128, 128}}};
    if (index < 0 || index >= ChartPaletteSize) {
        throw AutomationError(AutomationErrorCode::SubscriptOutOfRange,
                              "Colour index " + std::to_string(index) + " is not between 0 and 15");
    }
    return Palette[static_cast<std::size_t>(index)];
}

}  // namespace planview
