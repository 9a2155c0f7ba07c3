// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QFont>
#include <QImage>
#include <QMouseEvent>
#include <QtTest>
#include <cstdlib>
#include <string>

#include "components/GridControl.h"
#include "qt/grid/GridView.h"
#include "support/GridText.h"

namespace planview {

/// A grid in a window of its own: twenty columns of 80, forty rows of 20, a fixed column or row of each kind, and room
/// for a part of it. Cells hold "c,r" as a number: COL3/ROW4 is 3.4.
class GridOnScreen {
public:
    static constexpr int Columns = 20;
    static constexpr int Rows = 40;
    static constexpr int ColumnWidth = 80;
    static constexpr int RowHeight = 20;
    static constexpr int LabelWidth = 120;
    static constexpr int HeadingHeight = 24;
    static constexpr int FixedSize = 60;  ///< of fixed columns; fixed rows have RowHeight

    explicit GridOnScreen(bool switched = false) {
        fill(switched);
        view_ = std::make_unique<GridView>(grid_);
        view_->setTheme(GridTheme::light());
        view_->resize(700, 400);
        view_->show();
        view_->activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(view_.get()));
        view_->setFocus();
        log_.taking = &grid_;
        grid_.SetEvents(&log_);
    }
    ~GridOnScreen() { view_.reset(); }

    [[nodiscard]] GridControl& grid() { return grid_; }
    [[nodiscard]] GridView& view() { return *view_; }
    [[nodiscard]] QWidget* port() { return view_->viewport(); }
    [[nodiscard]] ReportLog& log() { return log_; }
    void deleteView() { view_.reset(); }

    [[nodiscard]] Cell cell(const std::string& column, const std::string& row) {
        return grid_.FindCell({column, row}).value();
    }
    [[nodiscard]] Cell cell(int column, int row) {
        return cell("COL" + std::to_string(column), "ROW" + std::to_string(row));
    }
    [[nodiscard]] QPoint middle(Cell place) { return view_->cellRect(place).center(); }
    /// "COL3/ROW4"
    [[nodiscard]] QString current() {
        const std::optional<Cell> current = grid_.CurrentCell();
        if (!current) {
            return QStringLiteral("none");
        }
        const CellKey key = grid_.KeyOf(*current);
        return QString::fromStdString(key.column + "/" + key.row);
    }
    [[nodiscard]] bool isSelected(const std::string& column, const std::string& row) {
        return grid_.IsSelected({column, row});
    }
    void set(CellKeyView keys, GridAttribute attribute, const Variant& value) {
        const GridElement element = keys.column.empty() && keys.row.empty() ? GridElement::Grid
                                    : keys.row.empty()                      ? GridElement::Column
                                    : keys.column.empty()                   ? GridElement::Row
                                                                            : GridElement::Cell;
        require(grid_.SetAttribute(element, keys, attribute, value, true));
    }

    /// What the viewport shows now.
    [[nodiscard]] QImage picture() { return port()->grab().toImage().convertToFormat(QImage::Format_RGB32); }

    static void require(GridStatus status) {
        if (status != GridStatus::Ok) {
            qFatal("the test's grid cannot be built: status %d", static_cast<int>(status));
        }
    }

private:
    void fill(bool switched) {
        grid_.SetRedraw(false);
        require(grid_.CreateLabelled(false));
        require(grid_.CreateColor("tovWhite", 255, 255, 255));
        require(grid_.CreateColor("tovBlack", 0, 0, 0));
        require(grid_.CreateColor("tovBlue", 0, 0, 128));
        require(grid_.CreateColor("tovGray", 192, 192, 192));
        set({}, GridAttribute::LabelColumnWidth, std::int16_t{LabelWidth});
        set({}, GridAttribute::Switched, switched);
        addColumn("FLC1", FixedSize);
        addColumn("FRC1", FixedSize);
        for (int i = 1; i <= Columns; ++i) {
            addColumn("COL" + std::to_string(i), ColumnWidth);
        }
        addRow("FTR1");
        addRow("FBR1");
        for (int i = 1; i <= Rows; ++i) {
            addRow("ROW" + std::to_string(i));
        }
        for (int c = 1; c <= Columns; ++c) {
            for (int r = 1; r <= Rows; ++r) {
                set({"COL" + std::to_string(c), "ROW" + std::to_string(r)}, GridAttribute::Contents,
                    std::to_string(c) + "," + std::to_string(r));
            }
        }
        grid_.SetRedraw(true);
        grid_.Redraw();
    }

    void addColumn(const std::string& key, int width) {
        require(grid_.CreateColumn(key, 0, false));
        set({key, {}}, GridAttribute::Width, static_cast<std::int16_t>(width));
        set({key, {}}, GridAttribute::Height, std::int16_t{HeadingHeight});
        set({key, HeadingRowKey}, GridAttribute::Contents, "Period " + key);
    }
    void addRow(const std::string& key) {
        require(grid_.CreateRow(key, 0, false));
        set({{}, key}, GridAttribute::Height, std::int16_t{RowHeight});
        set({{}, key}, GridAttribute::Width, std::int16_t{ColumnWidth});
        set({LabelColumnKey, key}, GridAttribute::Contents, "Line " + key);
    }

    GridControl grid_;
    ReportLog log_;
    std::unique_ptr<GridView> view_;
};

/// How many pixels of a part of a picture have about this colour.
inline int countColor(const QImage& image, const QRect& part, QRgb color) {
    constexpr int Tolerance = 24;
    int count = 0;
    const QRect inside = part & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (std::abs(qRed(pixel) - qRed(color)) + std::abs(qGreen(pixel) - qGreen(color)) +
                    std::abs(qBlue(pixel) - qBlue(color)) <=
                Tolerance) {
                ++count;
            }
        }
    }
    return count;
}

/// How many pixels of a part of a picture can be told from its ground.
inline int countInk(const QImage& image, const QRect& part, QRgb ground) {
    constexpr double Visible = 1.3;
    int count = 0;
    const QRect inside = part & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            count += contrastRatio(image.pixel(x, y), ground) > Visible ? 1 : 0;
        }
    }
    return count;
}

/// Whether the object has a timer running.
inline bool hasTimers(QObject& object) {
    return !QAbstractEventDispatcher::instance()->registeredTimers(&object).isEmpty();
}

/// Lets the time of all running timers of the object be up, without waiting for it.
inline void letTimersCome(QObject& object) {
    for (const auto& timer : QAbstractEventDispatcher::instance()->registeredTimers(&object)) {
        QTimerEvent event(timer.timerId);
        QCoreApplication::sendEvent(&object, &event);
    }
}

/// Moves the mouse without regard to the size of the screen, which QTest's own moves are confined to.
inline void moveMouse(QWidget* port, QPoint point, Qt::MouseButtons buttons = Qt::NoButton,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QMouseEvent event(QEvent::MouseMove, point, port->mapToGlobal(point), Qt::NoButton, buttons, modifiers);
    QApplication::sendEvent(port, &event);
}

inline void useTestFont() {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(13);
    QApplication::setFont(font);
}

}  // namespace planview
