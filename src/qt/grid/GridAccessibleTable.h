// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "qt/grid/GridAccessible.h"
#include "qt/grid/GridLine.h"
#include "qt/grid/GridView.h"

namespace planview {

/// The grid as assistive tools see it: the columns and rows of the screen, hidden ones left out, fixed ones included.
///
/// Rows and columns are counted from 0 behind the headings. The children are all cells line by line, the headings being
/// the first line and the first child of each line.
class GridAccessibleTable final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit GridAccessibleTable(GridView* view);
    ~GridAccessibleTable() override;

    [[nodiscard]] GridView* view() const;
    /// The heading cells have -1 as their row or column. Null outside the table.
    [[nodiscard]] QAccessibleInterface* cell(int row, int column) const;
    [[nodiscard]] int childIndex(int row, int column) const;
    /// The cells that are selected one by one, then the headings of whole columns and rows, as row and column. None of
    /// the cells where there are more than `most`.
    [[nodiscard]] GridTeller::Places selectedPlaces(std::size_t most) const;
    /// The cells that were asked for and have another text or description than then, or than when this was called last.
    struct ChangedCell {
        QAccessibleInterface* cell = nullptr;
        QAccessible::Event what = QAccessible::NameChanged;
    };
    [[nodiscard]] std::vector<ChangedCell> takeChangedCells() const;

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

    QAccessibleInterface* cellAt(int row, int column) const override;
    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    int columnCount() const override;
    int rowCount() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    int selectedColumnCount() const override;
    int selectedRowCount() const override;
    QList<int> selectedColumns() const override;
    QList<int> selectedRows() const override;
    bool isColumnSelected(int column) const override;
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int column) override;
    bool unselectRow(int row) override;
    bool unselectColumn(int column) override;
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

private:
    void dropCells();

    using Place = std::pair<int, int>;  // row, column
    struct Known {
        QAccessible::Id id = 0;
        QString text;
        QString description;
    };
    mutable std::map<Place, Known> cells_;
};

/// One cell or heading of a GridAccessibleTable, by its place.
class GridAccessibleCell final : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    GridAccessibleCell(GridView* view, int row, int column) : view_(view), row_(row), column_(column) {}

    void* interface_cast(QAccessible::InterfaceType type) override;
    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override;
    int columnIndex() const override { return column_; }
    int rowIndex() const override { return row_; }
    bool isSelected() const override;
    QAccessibleInterface* table() const override { return parent(); }

private:
    /// Answers a question about the cell at this place; a default value where there is none any more.
    template <class Question>
    [[nodiscard]] auto askAboutCell(Question question) const;
    [[nodiscard]] GridAccessibleTable* gridTable() const;
    [[nodiscard]] QString description(GridView& view, Cell cell) const;

    QPointer<GridView> view_;
    int row_;
    int column_;
};

}  // namespace planview
