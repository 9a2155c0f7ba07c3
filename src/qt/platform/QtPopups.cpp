// SPDX-License-Identifier: MIT
#include "qt/platform/QtPopups.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QMenu>
#include <QPainter>
#include <QScreen>
#include <QTextDocument>
#include <algorithm>
#include <optional>
#include <vector>

#include "qt/chart/ChartView.h"
#include "qt/grid/GridColors.h"
#include "qt/grid/GridView.h"
#include "qt/platform/MenuLetters.h"
#include "qt/tree/TreeView.h"

namespace planview {

namespace {

constexpr int SwatchSize = 14;
constexpr qreal SwatchRadius = 3;
constexpr int SwatchEdgeAlpha = 90;
/// Wider captions are cut, and the tooltip then shows the whole text.
constexpr int WidestCaption = 420;
/// No more characters are measured for a caption, or shown as a tip.
constexpr qsizetype LongestCaption = 400;
constexpr qsizetype LongestTip = 2000;

/// A dark or light tick, whichever can be seen.
void drawTick(QPainter& painter, const QColor& ground) {
    constexpr qreal TickWidth = 2;
    const QPolygonF tick({{3.5, 7.5}, {6, 10}, {10.5, 4.5}});
    const bool dark = contrastRatio(ground.rgb(), qRgb(0, 0, 0)) > contrastRatio(ground.rgb(), qRgb(255, 255, 255));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(dark ? Qt::black : Qt::white, TickWidth));
    painter.drawPolyline(tick);
}

QIcon swatchIcon(const QColor& color, bool checked, const QMenu& menu) {
    QColor edge = menu.palette().color(QPalette::WindowText);
    edge.setAlpha(SwatchEdgeAlpha);
    const qreal scale = menu.devicePixelRatioF();
    QPixmap pixmap(QSize(SwatchSize, SwatchSize) * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edge);
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(0.5, 0.5, SwatchSize - 1, SwatchSize - 1), SwatchRadius, SwatchRadius);
    if (checked) {
        drawTick(painter, color);
    }
    painter.end();
    QIcon icon(pixmap);
    icon.addPixmap(pixmap, QIcon::Disabled);  // a colour stays what it is
    icon.addPixmap(pixmap, QIcon::Selected);
    return icon;
}

/// One line of plain text.
QString captionLine(const QString& caption, const QFontMetrics& metrics) {
    QString line = caption.left(LongestCaption);
    for (QChar& character : line) {
        if (character == QLatin1Char('\t') || character == QLatin1Char('\n') || character == QLatin1Char('\r')) {
            character = QLatin1Char(' ');
        }
    }
    return metrics.elidedText(line, Qt::ElideRight, WidestCaption);
}

/// Fills menus with entries, whose colours are those of a view.
class MenuFiller {
public:
    explicit MenuFiller(const GridView* view) : view_(view) {}

    void fill(QMenu& menu, const std::vector<PopupEntry>& entries) const {
        QStringList lines;
        for (const PopupEntry& entry : entries) {
            lines << (entry.separator ? QString()
                                      : captionLine(QString::fromStdString(entry.caption), menu.fontMetrics()));
        }
        const std::vector<qsizetype> letters = menuLetters(lines);
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (entries[i].separator) {
                menu.addSeparator();
            } else {
                add(menu, entries[i], lines[static_cast<qsizetype>(i)], letters[i]);
            }
        }
    }

private:
    void add(QMenu& menu, const PopupEntry& entry, const QString& line, qsizetype letter) const {
        const QString text = withMnemonicAt(line, letter);
        QAction* action = nullptr;
        if (entry.entries.empty()) {
            action = menu.addAction(text);
            action->setData(QString::fromStdString(entry.name));
        } else {
            auto* submenu = new QMenu(text, &menu);
            fill(*submenu, entry.entries);
            action = menu.addMenu(submenu);
        }
        const QString caption = QString::fromStdString(entry.caption);
        if (line.size() < caption.size()) {
            action->setToolTip(Qt::convertFromPlainText(caption.left(LongestTip)));
            menu.setToolTipsVisible(true);
        } else {
            action->setToolTip(QString());
        }
        action->setEnabled(entry.enabled);
        action->setCheckable(entry.checked);
        action->setChecked(entry.checked);
        if (!entry.shortcut.empty()) {
            action->setShortcut(QKeySequence::fromString(QString::fromStdString(entry.shortcut)));
            action->setShortcutContext(Qt::WidgetShortcut);  // shown; the grid itself listens to it
            action->setShortcutVisibleInContextMenu(true);
        }
        if (const std::optional<QColor> swatch = swatchOf(entry)) {
            action->setIcon(swatchIcon(*swatch, entry.checked, menu));
            action->setIconVisibleInMenu(true);
        }
    }

    [[nodiscard]] std::optional<QColor> swatchOf(const PopupEntry& entry) const {
        if (entry.viewColor && view_) {
            return QColor(GridColors(view_->grid(), view_->theme()).own(*entry.viewColor));
        }
        return entry.swatch ? std::optional(QColor(entry.swatch->red, entry.swatch->green, entry.swatch->blue))
                            : std::nullopt;
    }

    const GridView* view_;
};

QString styleSheetFor(const GridTheme& theme) {
    const auto name = [](QRgb color) { return QColor(color).name(); };
    return QStringLiteral(
               "QMenu { background: %1; color: %2; border: 1px solid %3; padding: 4px; menu-scrollable: 1; }"
               "QMenu::item { padding: 5px 22px 5px 8px; border-radius: 4px; }"
               "QMenu::item:selected { background: %4; color: %2; }"
               "QMenu::item:disabled { color: %5; }"
               "QMenu::item:disabled:selected { background: transparent; }"
               "QMenu::indicator, QMenu::icon { left: 6px; }"
               "QMenu::separator { height: 1px; background: %3; margin: 4px 6px; }")
        .arg(name(theme.dark ? theme.panel : theme.base), name(theme.text), name(theme.line), name(theme.accentTint),
             name(theme.muted));
}

/// The nearest place on a screen: a popup that scrolls has no room beyond it.
QPoint onScreen(QPoint place, const QWidget& control) {
    if (QGuiApplication::screenAt(place)) {
        return place;
    }
    const QRect room = control.screen()->availableGeometry();
    return {std::clamp(place.x(), room.left(), room.right()), std::clamp(place.y(), room.top(), room.bottom())};
}

}  // namespace

/// Remembers whether a key in the chart has asked for a popup since a mouse button was last pressed in a view: a
/// command's own popup, opened long after the key, belongs where the first one was.
class QtPopups::LastAsked final : public QObject {
public:
    void watch(QAbstractScrollArea& view) {
        view.installEventFilter(this);
        view.viewport()->installEventFilter(this);
    }
    [[nodiscard]] bool byKeyInChart() const { return byKeyInChart_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonDblClick:
                byKeyInChart_ = false;
                break;
            case QEvent::ContextMenu:
                byKeyInChart_ = qobject_cast<ChartView*>(watched) &&
                                static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard;
                break;
            default:
                break;
        }
        return false;
    }

private:
    bool byKeyInChart_ = false;
};

QtPopups::QtPopups(QWidget& control) : control_(&control), asked_(std::make_unique<LastAsked>()) {}

QtPopups::~QtPopups() = default;

void QtPopups::setGrid(GridView* grid) {
    grid_ = grid;
    if (grid) {
        asked_->watch(*grid);
    }
}

void QtPopups::setChart(ChartView* chart) {
    chart_ = chart;
    if (chart) {
        asked_->watch(*chart);
    }
}

void QtPopups::setTree(TreeView* tree) {
    tree_ = tree;
    if (tree) {
        asked_->watch(*tree);
    }
}

QPoint QtPopups::placeInChart() const {
    const QRect port = chart_->viewport()->rect();
    const ChartHit& selected = chart_->chart().State().selected;
    const bool isPoint = selected.series > 0 && selected.category > 0;
    const QRect point = isPoint ? chart_->pointRect(selected.series, selected.category).toAlignedRect() : QRect();
    const QPoint at = port.intersects(point) ? point.bottomLeft() : port.center();
    return chart_->viewport()->mapToGlobal(at);
}

QPoint QtPopups::positionOf(PopupPlace place) const {
    const QWidget* focus = QApplication::activeModalWidget() ? QApplication::focusWidget() : nullptr;
    if (focus) {
        return focus->mapToGlobal(focus->rect().bottomLeft());
    }
    if (place == PopupPlace::Mouse) {
        if (chart_ && asked_->byKeyInChart()) {
            return placeInChart();
        }
        return QCursor::pos();
    }
    if (tree_ && tree_->hasFocus()) {
        const QRect node = tree_->nodeRect(tree_->tree().SelectedItem());
        return tree_->viewport()->mapToGlobal(node.isEmpty() ? tree_->viewport()->rect().topLeft() : node.bottomLeft());
    }
    if (grid_) {
        const std::optional<Cell> current = grid_->grid().CurrentCell();
        const QRect cell = current ? grid_->cellRect(*current) : QRect();
        const QPoint corner = cell.isEmpty() ? grid_->viewport()->rect().topLeft() : cell.bottomLeft();
        return grid_->viewport()->mapToGlobal(corner);
    }
    return control_->mapToGlobal(control_->rect().center());
}

void QtPopups::applyLook(QMenu& menu) const {
    if (grid_) {
        menu.setPalette(grid_->theme().widgetPalette(menu.palette()));
        menu.setStyleSheet(styleSheetFor(grid_->theme()));
    } else {
        menu.setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1; }"));  // instead of columns that hide the screen
    }
}

std::string QtPopups::Choose(const PopupMenu& menu, PopupPlace place) {
    if (!control_) {
        return {};
    }
    // Whoever owns the window may delete it, and the popup with it, while the user is choosing.
    QWidget* dialog = QApplication::activeModalWidget();
    const QPointer<QMenu> popup(new QMenu(dialog ? dialog : control_.data()));
    popup->setAccessibleName(QString::fromStdString(menu.caption));
    applyLook(*popup);
    MenuFiller(grid_).fill(*popup, menu.entries);
    const QAction* chosen = popup->exec(onScreen(positionOf(place), *control_));
    const std::string name = popup && control_ && chosen ? chosen->data().toString().toStdString() : std::string();
    delete popup.data();
    return name;
}

}  // namespace planview
