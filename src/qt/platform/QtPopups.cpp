// SPDX-License-Identifier: MIT
#include "qt/platform/QtPopups.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QMenu>
#include <QPainter>
#include <QTextDocument>

#include "qt/chart/ChartView.h"
#include "qt/grid/GridView.h"
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

QIcon swatchIcon(Rgb color, QColor edge, qreal scale) {
    QPixmap pixmap(QSize(SwatchSize, SwatchSize) * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edge);
    painter.setBrush(QColor(color.red, color.green, color.blue));
    painter.drawRoundedRect(QRectF(0.5, 0.5, SwatchSize - 1, SwatchSize - 1), SwatchRadius, SwatchRadius);
    painter.end();
    QIcon icon(pixmap);
    icon.addPixmap(pixmap, QIcon::Disabled);  // a colour stays what it is
    icon.addPixmap(pixmap, QIcon::Selected);
    return icon;
}

/// One line of plain text, in which no character is a mnemonic or separates a shortcut.
QString menuText(const QString& caption, const QFontMetrics& metrics) {
    QString line = caption.left(LongestCaption);
    for (QChar& character : line) {
        if (character == QLatin1Char('\t') || character == QLatin1Char('\n') || character == QLatin1Char('\r')) {
            character = QLatin1Char(' ');
        }
    }
    line = metrics.elidedText(line, Qt::ElideRight, WidestCaption);
    return line.replace(QLatin1Char('&'), QLatin1String("&&"));
}

void fill(QMenu& menu, const std::vector<PopupEntry>& entries);

void addEntry(QMenu& menu, const PopupEntry& entry) {
    if (entry.separator) {
        menu.addSeparator();
        return;
    }
    const QString caption = QString::fromStdString(entry.caption);
    const QString text = menuText(caption, menu.fontMetrics());
    QAction* action = nullptr;
    if (entry.entries.empty()) {
        action = menu.addAction(text);
        action->setData(QString::fromStdString(entry.name));
    } else {
        auto* submenu = new QMenu(text, &menu);
        fill(*submenu, entry.entries);
        action = menu.addMenu(submenu);
    }
    if (text.size() < caption.size()) {
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
    if (entry.swatch) {
        QColor edge = menu.palette().color(QPalette::WindowText);
        edge.setAlpha(SwatchEdgeAlpha);
        action->setIcon(swatchIcon(*entry.swatch, edge, menu.devicePixelRatioF()));
        action->setIconVisibleInMenu(true);
    }
}

void fill(QMenu& menu, const std::vector<PopupEntry>& entries) {
    for (const PopupEntry& entry : entries) {
        addEntry(menu, entry);
    }
}

QString styleSheetFor(const GridTheme& theme) {
    const auto name = [](QRgb color) { return QColor(color).name(); };
    return QStringLiteral(
               "QMenu { background: %1; color: %2; border: 1px solid %3; padding: 4px; }"
               "QMenu::item { padding: 5px 22px 5px 8px; border-radius: 4px; }"
               "QMenu::item:selected { background: %4; color: %2; }"
               "QMenu::item:disabled { color: %5; }"
               "QMenu::item:disabled:selected { background: transparent; }"
               "QMenu::indicator, QMenu::icon { left: 6px; }"
               "QMenu::separator { height: 1px; background: %3; margin: 4px 6px; }")
        .arg(name(theme.dark ? theme.panel : theme.base), name(theme.text), name(theme.line), name(theme.accentTint),
             name(theme.muted));
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
    fill(*popup, menu.entries);
    const QAction* chosen = popup->exec(positionOf(place));
    const std::string name = popup && control_ && chosen ? chosen->data().toString().toStdString() : std::string();
    delete popup.data();
    return name;
}

}  // namespace planview
