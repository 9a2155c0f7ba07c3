// SPDX-License-Identifier: MIT
// The macro tree of 10,000 nodes: from the host's table to the painted tree.

#include <QApplication>
#include <QPixmap>
#include <QTreeWidget>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <planview/PlanView.h>
#include <planview/qt/PlanViewWidget.h>

#include "PaintCounter.h"
#include "components/TreeControl.h"
#include "control/ControlParts.h"
#include "qt/tree/TreeView.h"
#include "support/SampleTables.h"

namespace planview::bench {

namespace {

constexpr int NodeCount = 10'000;
constexpr int Children = 100;  ///< with its macro
constexpr QSize WindowSize(1280, 800);

/// Every hundredth node is a macro, and every second macro is open.
struct NodeSource {
    int number;
    [[nodiscard]] bool IsMacro() const { return number % Children == 0; }
    [[nodiscard]] bool IsOpen() const { return number % (2 * Children) == 0; }
    [[nodiscard]] std::string Key() const { return "NODE" + std::to_string(number); }
    [[nodiscard]] std::string Parent() const { return "NODE" + std::to_string(number - number % Children); }
    [[nodiscard]] std::string Text() const { return (IsMacro() ? "Macro " : "Line ") + std::to_string(number); }
};

void BuildTree(benchmark::State& state) {
    const test::Tables tables;
    for (int i = 0; i < NodeCount; ++i) {
        const NodeSource node{i};
        test::AddRow(*tables.macroTree, {{"NODEKEY", node.Key()},
                                         {"NODEREF", node.IsMacro() ? std::string() : node.Parent()},
                                         {"RELATION", 4},
                                         {"NODETEXT", node.Text()},
                                         {"IMAGE", node.IsMacro() ? "M_MAKRO" : "M_TABLINE"},
                                         {"IMAGE_SEL", ""},
                                         {"EXPANDED", node.IsOpen() ? "X" : ""}});
    }
    PlanViewWidget widget;
    widget.resize(WindowSize);
    tables.GiveTo(widget.control());
    widget.plv_LayoutMode();
    widget.plv_LayoutShow();
    widget.show();
    QApplication::processEvents();
    auto* view = widget.findChild<TreeView*>();
    PaintCounter paints(*view->viewport());
    for ([[maybe_unused]] auto _ : state) {
        widget.DP_Import_MacroTree();
        view->viewport()->repaint();
    }
    if (ControlParts(widget.control()).Tree().Nodes().Count() != NodeCount || paints.Count() < state.iterations()) {
        state.SkipWithError("the tree was not built and painted");
    }
}

/// The same with ready texts, numbers of parents and icons.
void PeerBuildTree(benchmark::State& state) {
    struct Item {
        QString text;
        int parent;
        bool open;
    };
    std::vector<Item> items;
    for (int i = 0; i < NodeCount; ++i) {
        const NodeSource node{i};
        items.push_back({QString::fromStdString(node.Text()), node.IsMacro() ? -1 : i - i % Children, node.IsOpen()});
    }
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::blue);
    const QIcon icon(pixmap);
    QTreeWidget tree;
    tree.resize(WindowSize);
    tree.setUniformRowHeights(true);
    tree.setHeaderHidden(true);
    tree.show();
    QApplication::processEvents();
    std::vector<QTreeWidgetItem*> made(items.size());
    for ([[maybe_unused]] auto _ : state) {
        tree.clear();
        QList<QTreeWidgetItem*> roots;
        for (std::size_t i = 0; i < items.size(); ++i) {
            const Item& item = items[i];
            auto* shown = item.parent < 0 ? new QTreeWidgetItem
                                          : new QTreeWidgetItem(made[static_cast<std::size_t>(item.parent)]);
            shown->setText(0, item.text);
            shown->setIcon(0, icon);
            made[i] = shown;
            if (item.parent < 0) {
                roots.append(shown);
            }
        }
        tree.addTopLevelItems(roots);
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (items[i].open) {
                made[i]->setExpanded(true);
            }
        }
        tree.viewport()->repaint();
    }
}

BENCHMARK(BuildTree)->Unit(benchmark::kMillisecond);
BENCHMARK(PeerBuildTree)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace planview::bench
