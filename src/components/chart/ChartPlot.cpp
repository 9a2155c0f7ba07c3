// SPDX-License-Identifier: MIT
#include "components/chart/ChartPlot.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace planview {

namespace {

/// The part of a category that columns fill; the rest is the gap to the next.
constexpr double ColumnsPart = 2.0 / 3.0;
/// How far outside of the plot area a height may be: beyond any screen, within what a painter's arithmetic can do.
constexpr double FarOutside = 1e6;
/// A curved trend line is drawn in pieces about this wide.
constexpr double CurvePiece = 8;
constexpr int MostCurvePieces = 64;

/// Where a value stands between two others, 0 to 1 there; no overflow with ends that are far apart.
double FractionOf(double value, double from, double to) noexcept {
    const auto width = static_cast<long double>(to) - from;
    return static_cast<double>((static_cast<long double>(value) - from) / width);
}

double Distance(ChartPoint a, ChartPoint b) noexcept {
    return std::hypot(a.x - b.x, a.y - b.y);
}

double Distance(ChartPoint place, const ChartRect& rect) noexcept {
    const double x = std::max({rect.x - place.x, 0.0, place.x - rect.Right()});
    const double y = std::max({rect.y - place.y, 0.0, place.y - rect.Bottom()});
    return std::hypot(x, y);
}

double DistanceToSegment(ChartPoint place, ChartPoint from, ChartPoint to) noexcept {
    const double x = to.x - from.x;
    const double y = to.y - from.y;
    const double square = x * x + y * y;
    const double along = square > 0 ? ((place.x - from.x) * x + (place.y - from.y) * y) / square : 0;
    const double part = std::clamp(along, 0.0, 1.0);
    return Distance(place, ChartPoint{from.x + part * x, from.y + part * y});
}

std::size_t Index(int number) noexcept {
    return static_cast<std::size_t>(number - 1);
}

}  // namespace

/// The best hit so far.
struct ChartPlot::Nearest {
    ChartPoint place;
    double reach = 0;
    double distance = std::numeric_limits<double>::infinity();
    ChartHit hit;

    /// What is offered later lies above what was offered before.
    void Offer(double away, const ChartHit& offered) noexcept {
        if (away <= reach && away <= distance) {
            distance = away;
            hit = offered;
        }
    }
    [[nodiscard]] bool Found() const noexcept { return hit.code != ChartHitCode::None; }
};

ChartPlot::ChartPlot(const ChartState& state, const ChartRect& area, int maximumSteps)
    : state_(state), area_(area), stack_(StackSeries(state)) {
    first_ = state.FirstVisible();
    last_ = first_ + state.VisibleCount() - 1;
    slot_ = state.VisibleCount() > 0 ? area.width / state.VisibleCount() : 0;
    PlaceColumns();
    FitTrends();
    values_ = NiceScale(ValueRequest(maximumSteps));
    if (stack_.anyOnShares) {
        shares_ = NiceScale(
            {.dataMinimum = stack_.shareMinimum, .dataMaximum = stack_.shareMaximum, .maximumSteps = maximumSteps});
    }
}

void ChartPlot::PlaceColumns() {
    columnPlace_.assign(state_.series.size(), -1);
    int stacked = -1;
    int stacked100 = -1;
    for (std::size_t series = 0; series < state_.series.size(); ++series) {
        const ChartType type = state_.series[series].type;
        if (type == ChartType::Column) {
            columnPlace_[series] = columnPlaces_++;
        } else if (IsColumnType(type)) {
            int& shared = IsShareType(type) ? stacked100 : stacked;
            shared = shared < 0 ? columnPlaces_++ : shared;
            columnPlace_[series] = shared;
        }
    }
}

void ChartPlot::FitTrends() {
    fits_.resize(state_.series.size());
    for (std::size_t series = 0; series < state_.series.size(); ++series) {
        const auto& trends = state_.series[series].look->trends;
        if (trends.empty()) {
            continue;
        }
        const std::vector<double> values = TrendValues(state_, stack_, series);
        for (const auto& trend : trends) {
            fits_[series].emplace_back(trend->kind, values, trend->period);
        }
    }
}

ChartScaleRequest ChartPlot::ValueRequest(int maximumSteps) const {
    const ChartValueAxis& axis = state_.valueAxis;
    ChartScaleRequest request;
    request.dataMinimum = stack_.valueMinimum;
    request.dataMaximum = stack_.valueMaximum;
    request.maximumSteps = maximumSteps;
    request.includeZero = !std::all_of(state_.series.begin(), state_.series.end(),
                                       [](const ChartSeries& series) { return series.type == ChartType::Line; });
    IncludeTrends(request);
    // A limit that is to be seen has to be on the axis.
    for (const ChartLimit* limit : {&axis.rangeMinimum, &axis.rangeMaximum, &axis.optimum}) {
        if (limit->IsShown() && std::isfinite(limit->value)) {
            request.dataMinimum = std::min(request.dataMinimum, limit->value);
            request.dataMaximum = std::max(request.dataMaximum, limit->value);
        }
    }
    if (!axis.minimumIsAuto) {
        request.fixedMinimum = axis.minimum;
    }
    if (!axis.maximumIsAuto) {
        request.fixedMaximum = axis.maximum;
    }
    return request;
}

/// Trend lines are to be seen whole; a steep one widens the range of the data to its threefold at most.
void ChartPlot::IncludeTrends(ChartScaleRequest& request) const {
    constexpr double largest = std::numeric_limits<double>::max();
    const double range = stack_.valueMaximum - stack_.valueMinimum;
    const double lowest = std::max(stack_.valueMinimum - range, -largest);
    const double highest = std::min(stack_.valueMaximum + range, largest);
    for (std::size_t series = 0; series < fits_.size(); ++series) {
        for (const TrendFit& fit : fits_[series]) {
            for (int category = 1; category <= state_.CategoryCount() && !stack_.onShares[series]; ++category) {
                if (const std::optional<double> value = fit.At(category)) {
                    request.dataMinimum = std::min(request.dataMinimum, std::max(*value, lowest));
                    request.dataMaximum = std::max(request.dataMaximum, std::min(*value, highest));
                }
            }
        }
    }
}

const ChartScale& ChartPlot::ScaleOf(int series) const noexcept {
    return series > 0 && stack_.onShares[Index(series)] ? *shares_ : values_;
}

const ChartSpan& ChartPlot::SpanOf(int series, int category) const {
    return stack_.spans[Index(series)][Index(category)];
}

bool ChartPlot::IsColumn(int series) const {
    return columnPlace_[Index(series)] >= 0;
}

double ChartPlot::CategoryCenter(int category) const noexcept {
    return area_.x + (category - first_ + 0.5) * slot_;
}

double ChartPlot::YOf(double value, int series) const noexcept {
    const ChartScale& scale = ScaleOf(series);
    const double y = area_.Bottom() - FractionOf(value, scale.minimum, scale.maximum) * area_.height;
    return std::clamp(y, area_.y - FarOutside, area_.Bottom() + FarOutside);
}

double ChartPlot::ValueAt(double y, int series) const noexcept {
    const ChartScale& scale = ScaleOf(series);
    const double part = area_.height > 0 ? (area_.Bottom() - y) / area_.height : 0;
    constexpr double largest = std::numeric_limits<double>::max();
    return std::clamp(scale.minimum * (1 - part) + scale.maximum * part, -largest, largest);
}

double ChartPlot::ColumnLeft(int series, int category) const {
    const double width = slot_ * ColumnsPart;
    return CategoryCenter(category) - width / 2 + columnPlace_[Index(series)] * width / columnPlaces_;
}

ChartRect ChartPlot::Column(int series, int category) const {
    if (!IsColumn(series)) {
        return {};
    }
    const ChartSpan& span = SpanOf(series, category);
    const double from = std::clamp(YOf(span.from, series), area_.y, area_.Bottom());
    const double to = std::clamp(YOf(span.to, series), area_.y, area_.Bottom());
    return {ColumnLeft(series, category), std::min(from, to), slot_ * ColumnsPart / columnPlaces_, std::abs(from - to)};
}

ChartPoint ChartPlot::Point(int series, int category) const {
    const double y = YOf(SpanOf(series, category).to, series);
    if (!IsColumn(series)) {
        return {CategoryCenter(category), y};
    }
    return {ColumnLeft(series, category) + slot_ * ColumnsPart / columnPlaces_ / 2, y};
}

const TrendFit& ChartPlot::Fit(int series, int trend) const {
    return fits_[Index(series)][Index(trend)];
}

std::vector<std::vector<ChartPoint>> ChartPlot::Trend(int series, int trend) const {
    std::vector<std::vector<ChartPoint>> pieces;
    const TrendFit& fit = Fit(series, trend);
    if (!fit.IsValid() || last_ < first_) {
        return pieces;
    }
    const bool straight = fit.Kind() == TrendKind::Linear || fit.Kind() == TrendKind::MovingAverage;
    const int parts = straight ? 1 : static_cast<int>(std::clamp(slot_ / CurvePiece, 1.0, double{MostCurvePieces}));
    bool gap = true;
    for (int i = 0; i <= (last_ - first_) * parts; ++i) {
        const double place = static_cast<double>(i) / parts;
        const std::optional<double> value = fit.At(first_ + place);
        if (!value) {
            gap = true;
            continue;
        }
        if (gap) {
            pieces.emplace_back();
            gap = false;
        }
        pieces.back().push_back({area_.x + (place + 0.5) * slot_, YOf(*value, series)});
    }
    return pieces;
}

ChartHit ChartPlot::HitTest(ChartPoint place, double reach) const {
    Nearest nearest{place, reach, std::numeric_limits<double>::infinity(), {}};
    const bool inside = Distance(place, area_) == 0;
    if (slot_ > 0 && Distance(place, area_) <= reach) {
        const auto slotAt = [&](double x) {
            return first_ + static_cast<int>(std::floor(std::clamp((x - area_.x) / slot_, 0.0, 1.0 * last_)));
        };
        const int first = std::min(slotAt(place.x - reach), last_);
        const int last = std::min(slotAt(place.x + reach), last_);
        FindPoints(nearest, first, last);
        if (!nearest.Found()) {
            FindTrends(nearest);  // drawn on top of the columns, and thin
        }
        if (!nearest.Found()) {
            FindColumns(nearest, first, last);
        }
        if (!nearest.Found()) {
            FindLines(nearest, std::max(first - 1, first_), std::min(last + 1, last_));
        }
    }
    if (!nearest.Found() && inside) {
        return {ChartHitCode::PlotArea, 0, 0};
    }
    return nearest.hit;
}

void ChartPlot::FindPoints(Nearest& nearest, int first, int last) const {
    for (int series = 1; series <= state_.SeriesCount(); ++series) {
        for (int category = first; category <= last && !IsColumn(series); ++category) {
            nearest.Offer(Distance(nearest.place, Point(series, category)), {ChartHitCode::Point, series, category});
        }
    }
}

void ChartPlot::FindColumns(Nearest& nearest, int first, int last) const {
    for (int series = 1; series <= state_.SeriesCount(); ++series) {
        for (int category = first; category <= last && IsColumn(series); ++category) {
            nearest.Offer(Distance(nearest.place, Column(series, category)), {ChartHitCode::Point, series, category});
        }
    }
}

void ChartPlot::FindTrends(Nearest& nearest) const {
    for (int series = 1; series <= state_.SeriesCount(); ++series) {
        for (int trend = 1; trend <= static_cast<int>(fits_[Index(series)].size()); ++trend) {
            for (const std::vector<ChartPoint>& piece : Trend(series, trend)) {
                for (std::size_t i = 1; i < piece.size(); ++i) {
                    nearest.Offer(DistanceToSegment(nearest.place, piece[i - 1], piece[i]),
                                  {ChartHitCode::Trendline, series, 0});
                }
            }
        }
    }
}

void ChartPlot::FindLines(Nearest& nearest, int first, int last) const {
    for (int series = 1; series <= state_.SeriesCount(); ++series) {
        for (int category = first; category < last && !IsColumn(series); ++category) {
            nearest.Offer(DistanceToSegment(nearest.place, Point(series, category), Point(series, category + 1)),
                          {ChartHitCode::Series, series, 0});
        }
    }
}

}  // namespace planview
