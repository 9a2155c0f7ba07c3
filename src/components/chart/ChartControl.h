// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <planview/AutomationObject.h>
#include <planview/Export.h>

#include "components/InputTypes.h"
#include "components/chart/ChartState.h"

namespace planview {

/// Hears that the chart looks different now. Called once per change while redraw is on, and once when redraw is
/// switched on after changes.
class ChartWatcher {
public:
    virtual ~ChartWatcher() = default;
    virtual void ChartChanged() = 0;
    /// Asked to put the picture of the chart, as it is on screen, on the clipboard.
    virtual void CopyPicture() = 0;
};

/// Hears what the user did in the chart. May change and rebuild it.
class ChartEvents {
public:
    virtual ~ChartEvents() = default;
    virtual void MouseDown(MouseButton button, ShiftState shift, const ChartHit& hit) = 0;
    virtual void Selected(const ChartHit& hit) = 0;
    /// `source` names the control that something is dragged from, over the chart or dropped on it.
    virtual void Drag(const std::string& source) = 0;
    virtual void DragDrop(const std::string& source) = 0;
    virtual void GotFocus() = 0;
    virtual void LostFocus() = 0;
    /// Asked before a point is dragged; series and category from 1.
    [[nodiscard]] virtual bool PointMayChange(int series, int category) = 0;
    /// The user gave a point another value. The chart still shows the old one; whoever fills it refills it.
    virtual void PointValueChanged(int series, int category, double value) = 0;
};

struct ChartModel;

/// The chart as a model without a screen. It is changed late-bound, by the names of its object model (Object()), is
/// read by a view (State()), and reports what the user does to one listener.
///
/// A series keeps its colour and its trend lines through every rebuild as long as whoever fills the chart gives it the
/// same key.
class PLANVIEW_EXPORT ChartControl {
public:
    ChartControl();
    ~ChartControl();
    ChartControl(const ChartControl&) = delete;
    ChartControl& operator=(const ChartControl&) = delete;

    void SetWatcher(ChartWatcher* watcher) noexcept;
    void SetEvents(ChartEvents* events) noexcept;

    /// The root of the object model.
    ///
    /// "Redraw", "ChartType", "AllowContextMenus", "AllowDialogs", "AllowSelect", "AllowValueChange", "AutoArrange",
    /// "CreateDataRows", "DataSheet" and "Chart" with all below it. Indexes count from 1 and may be 16 or 32 bits wide.
    /// An unknown member throws UnknownMember, an index outside its range SubscriptOutOfRange.
    [[nodiscard]] const ObjectRef& Object() const noexcept;
    [[nodiscard]] const ChartState& State() const noexcept;
    /// Grows with every change of what a view shows.
    [[nodiscard]] std::uint64_t Version() const noexcept;

    // --- Beside the object model: for whoever fills the chart ------------------------------------------------------

    /// Says what a series (from 1) shows. Gives it the colour and the trend lines that this key had before, else the
    /// next colour. `format` is the number code of its values.
    void NameSeries(int series, std::string_view key, std::string_view format);
    /// The colour of a key that has been a series; none before.
    [[nodiscard]] std::optional<ChartColor> ColorOf(std::string_view key) const;
    /// `base` as ChartState::comparisonBase.
    void SetComparison(int base);
    /// `guidance` as ChartState::guidance.
    void SetGuidance(std::string guidance);
    /// Keys of the lines that are chosen for a comparison; empty for none.
    void NameComparedLines(std::string sales, std::string forecast);
    /// Asks the view for it; nothing without one.
    void CopyPicture() const;

    // --- What the user does in a view -------------------------------------------------------------------------------

    void UserPressed(MouseButton button, ShiftState shift, const ChartHit& hit);
    /// Selects what was hit and tells the listener; does nothing while "AllowSelect" is off or if the series no longer
    /// exists.
    void UserSelected(const ChartHit& hit);
    [[nodiscard]] bool UserMayChange(int series, int category);
    void UserChangedPoint(int series, int category, double value);
    /// Scrolls to a first visible category, from 1; clamped.
    void UserScrolledTo(int category);
    void UserDragged(const std::string& source, bool dropped);
    void UserFocus(bool got);

private:
    std::shared_ptr<ChartModel> model_;
    ObjectRef object_;
};

/// The sixteen colours that the chart's "ColorIndex" members count, from 0.
[[nodiscard]] PLANVIEW_EXPORT ChartColor ChartPaletteColor(int index);
inline constexpr int ChartPaletteSize = 16;

}  // namespace planview
