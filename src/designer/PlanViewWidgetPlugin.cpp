// SPDX-License-Identifier: MIT
#include "designer/PlanViewWidgetPlugin.h"

#include <QIcon>
#include <array>

#include <planview/MemoryTable.h>
#include <planview/qt/PlanViewWidget.h>

namespace planview {

namespace {

constexpr std::array Periods{"January", "February", "March", "April"};
constexpr std::array Lines{"Sales", "Costs", "Result"};

void showSample(PlanViewWidget& view) {
    const auto columns = MemoryTable::WithFieldsOf("COLS_INDEX");
    const auto lines = MemoryTable::WithFieldsOf("LINE_INDEX");
    const auto cells = MemoryTable::WithFieldsOf("TAB");
    int line = 0;
    for (const char* name : Lines) {
        lines->AddRowWith({{"LINE", ++line}, {"LTEXT", "F"}, {"FREET", name}, {"ROW_FORMAT", "#,##0"}, {"ROW_FG", 1}});
    }
    int column = 0;
    for (const char* period : Periods) {
        columns->AddRowWith({{"COLUMN", ++column}, {"PERDY", period}});
        const double sales = 1200 + 85 * column;
        const double costs = 900 + 40 * column;
        cells->AddRowWith({{"Z", 1}, {"C", column}, {"V", sales}});
        cells->AddRowWith({{"Z", 2}, {"C", column}, {"V", costs}});
        cells->AddRowWith({{"Z", 3}, {"C", column}, {"V", sales - costs}});
    }
    view.PROP_Set_COLS_INDEX(columns);
    view.PROP_Set_LINE_INDEX(lines);
    view.PROP_Set_TAB(cells);
    view.DP_Import_Create();
}

}  // namespace

QString PlanViewWidgetPlugin::name() const {
    return "planview::PlanViewWidget";
}

QString PlanViewWidgetPlugin::group() const {
    return "PlanView";
}

QString PlanViewWidgetPlugin::toolTip() const {
    return "Planning table";
}

QString PlanViewWidgetPlugin::whatsThis() const {
    return "Shows the host's tables as a grid with fixed columns and rows, and the lines marked for it as a chart.";
}

QString PlanViewWidgetPlugin::includeFile() const {
    return "planview/qt/PlanViewWidget.h";
}

QIcon PlanViewWidgetPlugin::icon() const {
    return QIcon(":/planview_designer/planview.svg");
}

bool PlanViewWidgetPlugin::isContainer() const {
    return false;
}

// Loaders of .ui files create widgets by this plugin, too, without initialize(); theirs are for data.
QWidget* PlanViewWidgetPlugin::createWidget(QWidget* parent) {
    auto* view = new PlanViewWidget(parent);
    if (inDesigner_) {
        showSample(*view);
    }
    return view;
}

bool PlanViewWidgetPlugin::isInitialized() const {
    return inDesigner_;
}

void PlanViewWidgetPlugin::initialize(QDesignerFormEditorInterface* /*core*/) {
    inDesigner_ = true;
}

QString PlanViewWidgetPlugin::domXml() const {
    return R"(<ui language="c++">
 <widget class="planview::PlanViewWidget" name="planView">
  <property name="geometry">
   <rect><x>0</x><y>0</y><width>520</width><height>240</height></rect>
  </property>
 </widget>
</ui>)";
}

}  // namespace planview
