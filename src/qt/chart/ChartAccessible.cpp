// SPDX-License-Identifier: MIT
#include "qt/chart/ChartAccessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <algorithm>
#include <map>
#include <type_traits>
#include <utility>

#include "qt/AssistiveTools.h"
#include "qt/chart/ChartNumbers.h"
#include "qt/chart/ChartView.h"

namespace planview {

namespace {

class ChartAccessible;

/// A series, or one of its points. Guarded, because assistive tools ask past the view's event handlers.
class ChartPart final : public QAccessibleInterface, public QAccessibleValueInterface {
    /// Answers a question about the series; a default value where the part is there no more.
    template <class Question>
    auto ask(Question question) const {
        using Answer = std::invoke_result_t<Question&, ChartView&, const ChartSeries&>;
        return view_ ? view_->guard().run(
                           "Accessible",
                           [&] {
                               const ChartState& state = view_->chart().State();
                               const bool there = series_ <= state.SeriesCount() && category_ <= state.CategoryCount();
                               return there ? question(*view_, state.series[static_cast<std::size_t>(series_ - 1)])
                                            : Answer{};
                           })
                     : Answer{};
    }

public:
    /// Category 0 is the series itself.
    ChartPart(ChartView* view, int series, int category) : view_(view), series_(series), category_(category) {}

    [[nodiscard]] int series() const { return series_; }
    [[nodiscard]] int category() const { return category_; }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface && category_ > 0 ? static_cast<QAccessibleValueInterface*>(this)
                                                                    : nullptr;
    }
    bool isValid() const override {
        return ask([](ChartView&, const ChartSeries&) { return true; });
    }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override {
        return category_ > 0
                   ? 0
                   : ask([](ChartView& view, const ChartSeries&) { return view.chart().State().CategoryCount(); });
    }
    int indexOfChild(const QAccessibleInterface* child) const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return category_ > 0 ? QAccessible::Slider : QAccessible::List; }
    QAccessible::State state() const override;

    QVariant currentValue() const override {
        return ask([&](ChartView&, const ChartSeries& series) { return QVariant(valueIn(series)); });
    }
    void setCurrentValue(const QVariant& value) override {
        ask([&](ChartView& view, const ChartSeries&) {
            const QPointer<ChartView> alive(&view);
            if (view.chart().UserMayChange(series_, category_) && alive) {
                view.chart().UserChangedPoint(series_, category_, value.toDouble());
            }
            return true;
        });
    }
    QVariant maximumValue() const override {
        return ask([](ChartView&, const ChartSeries& series) {
            return QVariant(*std::max_element(series.values.begin(), series.values.end()));
        });
    }
    QVariant minimumValue() const override {
        return ask([](ChartView&, const ChartSeries& series) {
            return QVariant(*std::min_element(series.values.begin(), series.values.end()));
        });
    }
    QVariant minimumStepSize() const override { return 0; }

private:
    [[nodiscard]] double valueIn(const ChartSeries& series) const {
        return series.values[static_cast<std::size_t>(category_ - 1)];
    }
    [[nodiscard]] ChartAccessible* chart() const;

    QPointer<ChartView> view_;
    int series_;
    int category_;
};

class ChartAccessible final : public QAccessibleWidget {
public:
    explicit ChartAccessible(ChartView* view) : QAccessibleWidget(view, QAccessible::Chart) {}
    ~ChartAccessible() override { drop(); }

    [[nodiscard]] ChartPart* part(int series, int category) const {
        const auto known = parts_.find({series, category});
        if (known != parts_.end()) {
            return static_cast<ChartPart*>(QAccessible::accessibleInterface(known->second));
        }
        auto* made = new ChartPart(view(), series, category);  // owned by QAccessible from here on
        parts_[{series, category}] = QAccessible::registerAccessibleInterface(made);
        return made;
    }
    void drop() {
        for (const auto& [place, id] : parts_) {
            QAccessible::deleteAccessibleInterface(id);
        }
        parts_.clear();
    }

    int childCount() const override { return view()->chart().State().SeriesCount(); }
    QAccessibleInterface* child(int index) const override {
        return index >= 0 && index < childCount() ? part(index + 1, 0) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* known = dynamic_cast<const ChartPart*>(child);
        return known && known->category() == 0 ? known->series() - 1 : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const ChartHit hit = view()->guard().run(
            "Accessible", [&] { return view()->hitTest(view()->viewport()->mapFromGlobal(QPoint(x, y))); });
        return hit.code == ChartHitCode::Point ? part(hit.series, hit.category) : nullptr;
    }
    QAccessibleInterface* focusChild() const override {
        const ChartHit current = view()->currentPoint();
        return view()->hasFocus() && current.series > 0 ? part(current.series, current.category) : nullptr;
    }

private:
    [[nodiscard]] ChartView* view() const { return static_cast<ChartView*>(object()); }

    mutable std::map<std::pair<int, int>, QAccessible::Id> parts_;
};

ChartAccessible* ChartPart::chart() const {
    return view_ ? static_cast<ChartAccessible*>(QAccessible::queryAccessibleInterface(view_)) : nullptr;
}

QAccessibleInterface* ChartPart::parent() const {
    if (!chart()) {
        return nullptr;
    }
    return category_ > 0 ? static_cast<QAccessibleInterface*>(chart()->part(series_, 0)) : chart();
}

QAccessibleInterface* ChartPart::child(int index) const {
    return index >= 0 && index < childCount() ? chart()->part(series_, index + 1) : nullptr;
}

int ChartPart::indexOfChild(const QAccessibleInterface* child) const {
    const auto* known = dynamic_cast<const ChartPart*>(child);
    return known && category_ == 0 && known->series_ == series_ ? known->category_ - 1 : -1;
}

QString ChartPart::text(QAccessible::Text kind) const {
    return ask([&](ChartView& view, const ChartSeries& series) -> QString {
        const ChartState& state = view.chart().State();
        if (kind == QAccessible::Name) {
            return category_ > 0 ? pointName(state, series_, category_) : seriesName(state, series_);
        }
        return kind == QAccessible::Value && category_ > 0 ? valueText(series, valueIn(series)) : QString();
    });
}

QRect ChartPart::rect() const {
    return ask([&](ChartView& view, const ChartSeries&) {
        const QRect inPort =
            category_ > 0 ? view.pointRect(series_, category_).toAlignedRect() : view.viewport()->rect();
        return inPort.isEmpty() ? QRect() : QRect(view.viewport()->mapToGlobal(inPort.topLeft()), inPort.size());
    });
}

QAccessible::State ChartPart::state() const {
    QAccessible::State state;
    const bool there = ask([&](ChartView& view, const ChartSeries&) {
        const ChartHit current = view.currentPoint();
        state.focusable = category_ > 0;
        state.focused = category_ > 0 && view.hasFocus() && current.series == series_ && current.category == category_;
        state.selectable = true;
        const ChartHit& selected = view.chart().State().selected;
        state.selected = selected.series == series_ && (category_ == 0 || selected.category == category_);
        state.offscreen = category_ > 0 && view.pointRect(series_, category_).isEmpty();
        return true;
    });
    state.invalid = !there;
    return state;
}

QAccessibleInterface* makeChart(const QString& /*className*/, QObject* object) {
    auto* view = qobject_cast<ChartView*>(object);
    return view ? new ChartAccessible(view) : nullptr;
}

ChartAccessible* accessibleOf(ChartView& view) {
    return toolsListen() ? static_cast<ChartAccessible*>(QAccessible::queryAccessibleInterface(&view)) : nullptr;
}

}  // namespace

void installChartAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(makeChart);
        return true;
    }();
    static_cast<void>(installed);
}

void tellChartFocus(ChartView& view, int series, int category) {
    if (const ChartAccessible* chart = accessibleOf(view)) {
        QAccessibleEvent event(chart->part(series, category), QAccessible::Focus);
        tellTools(event);
    }
}

void tellChartValue(ChartView& view, int series, int category) {
    if (const ChartAccessible* chart = accessibleOf(view)) {
        ChartPart* const point = chart->part(series, category);
        QAccessibleValueChangeEvent event(point, point->currentValue());
        tellTools(event);
    }
}

void tellChartShape(ChartView& view) {
    if (ChartAccessible* chart = accessibleOf(view)) {
        chart->drop();
        QAccessibleEvent event(chart, QAccessible::ObjectReorder);
        tellTools(event);
    }
}

}  // namespace planview
