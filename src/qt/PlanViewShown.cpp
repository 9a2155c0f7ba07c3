// SPDX-License-Identifier: MIT
#include <QPointer>
#include <string>
#include <vector>

#include "control/ControlParts.h"
#include "qt/PlanViewState.h"
#include "qt/VariantConversion.h"
#include "qt/WidgetState.h"

namespace planview {

namespace {

std::vector<std::string> plainKeys(const QStringList& keys) {
    std::vector<std::string> plain;
    for (const QString& key : keys) {
        plain.push_back(key.toStdString());
    }
    return plain;
}

CellKey cellKey(const QString& column, const QString& row) {
    return {column.toStdString(), row.toStdString()};
}

}  // namespace

QString PlanViewWidget::cellText(const QString& column, const QString& row) const {
    return QString::fromStdString(state_->core->view.View().TextOf(cellKey(column, row)));
}

QVariant PlanViewWidget::cellValue(const QString& column, const QString& row) const {
    return toQVariant(state_->core->view.View().ValueOf(cellKey(column, row)));
}

void PlanViewWidget::updateCells(const QList<CellKey>& cells) {
    state_->call([&](PlanView& view) {
        view.View().UpdateCells({cells.constData(), static_cast<std::size_t>(cells.size())});
    });
}

void PlanViewWidget::updateColumns(const QStringList& keys) {
    state_->call([&](PlanView& view) { view.View().UpdateColumns(plainKeys(keys)); });
}

void PlanViewWidget::updateRows(const QStringList& keys) {
    state_->call([&](PlanView& view) { view.View().UpdateRows(plainKeys(keys)); });
}

QByteArray PlanViewWidget::saveState() const {
    return state_->guard.run("saveState", [&] {
        const ControlParts parts(state_->core->view);
        WidgetState state;
        state.grid = ViewOf(parts.Grid());
        for (std::size_t i = 0; i < state.splitters.size(); ++i) {
            state.splitters[i] = parts.Panes().Position(static_cast<Splitter>(i));
        }
        state.scale = textScale();
        TreeNodes& nodes = parts.Tree().Nodes();
        for (int i = 1; i <= nodes.Count(); ++i) {
            if (const TreeNode node = nodes.Item(i); node.FirstChild()) {
                state.nodes.emplace_back(node.Key(), node.Expanded());
            }
        }
        return toBytes(state);
    });
}

bool PlanViewWidget::restoreState(const QByteArray& bytes) {
    const std::optional<WidgetState> state = widgetStateFrom(bytes);
    const QPointer<PlanViewWidget> self(this);
    if (!state || !finishEditing() || !self) {
        return false;
    }
    return state_->guard.run("restoreState", [&] {
        const ControlParts parts(state_->core->view);
        ShowView(parts.Grid(), state->grid);
        parts.Panes().MoveSplitters(state->splitters);
        for (const auto& [key, open] : state->nodes) {
            if (const TreeNode node = parts.Tree().Nodes().Find(key)) {
                node.SetExpanded(open);
            }
        }
        setTextScale(state->scale);
        return true;
    });
}

}  // namespace planview
