// SPDX-License-Identifier: MIT
#include "qt/dialogs/RowPreview.h"

#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "grid/modGrid.h"
#include "qt/grid/GridView.h"

namespace planview {

namespace {

constexpr int PreviewHeight = 76;
constexpr int HeadingHeight = 24;
constexpr int LeastWidth = 480;
constexpr int LabelWidth = 170;
constexpr int Edge = 1;
constexpr int MostRowHeight = PreviewHeight - HeadingHeight - 2 * Edge;
constexpr std::string_view RowKey = "ROW1";

std::string columnKey(std::size_t index) {
    return "COL" + std::to_string(index + 1);
}

/// Cells of a row that has nothing to show yet.
const std::vector<std::string>& usualContents() {
    static const std::vector<std::string> numbers{"1234,5", "-56", "0,25"};
    return numbers;
}

}  // namespace

RowPreview::RowPreview(const frmRow& form, const EntryGuard& dialog, QWidget* parent)
    : GuardedWidget(dialog, parent), form_(form) {
    createGrid();
    view_ = new GridView(grid_, nullptr, this);
    view_->setFramesCurrent(false);
    view_->setFocusPolicy(Qt::NoFocus);
    view_->setAttribute(Qt::WA_TransparentForMouseEvents);
    view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_->setAccessibleName(tr("Preview"));
    auto* only = new QVBoxLayout(this);
    only->setContentsMargins(Edge, Edge, Edge, Edge);
    only->addWidget(view_);
    setFixedHeight(PreviewHeight);
    setMinimumWidth(LeastWidth);
    follow();
}

RowPreview::~RowPreview() {
    delete view_;  // before the grid that it watches
}

void RowPreview::createGrid() {
    grid_.CreateLabelled(false);
    for (std::int16_t i = 0; i < modGrid::PaletteSize; ++i) {
        const Rgb color = modGrid::PaletteColorOf(i);
        grid_.CreateColor(modGrid::PaletteName(i), color.red, color.green, color.blue);
    }
    const RowSample& sample = form_.Sample;
    for (const auto& [attribute, color] : {std::pair(GridAttribute::BackgroundColor, sample.background),
                                           std::pair(GridAttribute::GridLineColor, sample.gridLines)}) {
        // A colour that is none leaves the preview as the grid would be.
        static_cast<void>(grid_.SetAttribute(GridElement::Grid, {}, attribute, modGrid::PaletteName(color), false));
    }
    grid_.SetAttribute(GridElement::Grid, {}, GridAttribute::LabelColumnWidth, LabelWidth, false);
    const bool nothing = std::all_of(sample.contents.begin(), sample.contents.end(),
                                     [](const std::string& text) { return text.empty(); });
    const std::vector<std::string>& contents = nothing && !sample.textLine ? usualContents() : sample.contents;
    const std::size_t count = std::max(contents.size(), sample.headings.size());
    for (std::size_t i = 0; i < count; ++i) {
        const std::string key = columnKey(i);
        grid_.CreateColumn(key, 0, false);
        grid_.SetAttribute(GridElement::Column, {key, {}}, GridAttribute::Height, HeadingHeight, false);
        if (i < sample.headings.size()) {
            grid_.SetAttribute(GridElement::Cell, {key, HeadingRowKey}, GridAttribute::Contents, sample.headings[i],
                               false);
        }
    }
    grid_.CreateRow(RowKey, 0, false);
    for (std::size_t i = 0; i < contents.size(); ++i) {
        grid_.SetAttribute(GridElement::Cell, {columnKey(i), RowKey}, GridAttribute::Contents, contents[i], false);
    }
    grid_.SetAttribute(GridElement::Cell, {LabelColumnKey, RowKey}, GridAttribute::Contents, form_.lblRowLabel, false);
    setCenter(GridAttribute::Format, sample.format);
    setCenter(GridAttribute::ReadOnly, sample.readOnly);
    setCenter(GridAttribute::TextLine, sample.textLine);
    setCenter(GridAttribute::HelpLine, sample.helpLine);
}

void RowPreview::setCenter(GridAttribute attribute, const Variant& value) {
    // A format or font that the grid would refuse leaves the preview as the grid would be.
    static_cast<void>(grid_.SetCenterAttribute(GridElement::Row, {{}, RowKey}, attribute, value, false));
}

void RowPreview::setTheme(const GridTheme& theme) {
    theme_ = theme;
    view_->setTheme(theme);
    update();
}

void RowPreview::follow() {
    setCenter(GridAttribute::BackgroundColor, modGrid::PaletteName(form_.Get_BgColor()));
    setCenter(GridAttribute::ForegroundColor, modGrid::PaletteName(form_.Get_FgColor()));
    setCenter(GridAttribute::Relief, form_.chkRelief.Value == 1);
    setCenter(GridAttribute::Alignment, form_.Alignment());
    setCenter(GridAttribute::Font, form_.FontText());
    if (const std::optional<std::int16_t> height = form_.Height()) {
        const std::int16_t shown = std::min<std::int16_t>(*height, MostRowHeight);
        grid_.SetAttribute(GridElement::Row, {{}, RowKey}, GridAttribute::Height, shown, false);
    }
    grid_.Redraw();
}

void RowPreview::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), QColor(theme_.line));  // the view leaves its edge visible
}

void RowPreview::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const std::span<const ColumnId> columns = grid_.Columns(ColumnArea::Center);
    if (columns.empty()) {
        return;
    }
    const int room = width() - LabelWidth - 2 * Edge;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int left = static_cast<int>(static_cast<std::size_t>(room) * i / columns.size());
        const int right = static_cast<int>(static_cast<std::size_t>(room) * (i + 1) / columns.size());
        grid_.SetAttribute(GridElement::Column, {grid_.Column(columns[i]).key, {}}, GridAttribute::Width,
                           static_cast<std::int16_t>(right - left), false);
    }
    grid_.Redraw();
}

}  // namespace planview
