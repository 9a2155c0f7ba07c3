// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPointer>
#include <QResizeEvent>
#include <QVBoxLayout>
#include <optional>

#include <planview/qt/PlanViewWidget.h>

#include "automation/NumberFormat.h"
#include "automation/Numbers.h"
#include "control/ControlParts.h"
#include "macro/tree/SelectionText.h"
#include "platform/Desktop.h"
#include "qt/AssistiveTools.h"
#include "qt/KeyStrokes.h"
#include "qt/PlanViewState.h"

namespace planview {

namespace {

constexpr QSize UsualSize(900, 500);
constexpr QSize SmallestSize(240, 120);
/// In logical pixels, where nobody asked for another one.
constexpr QSize ChartFileSize(1000, 560);

/// With grouped digits and no more decimals than are worth reading; empty for what is not a finite number.
QString shownNumber(double value) {
    static const std::optional<NumberFormat> Format = NumberFormat::Parse("#,##0.##");
    std::string text = Format->Format(value);
    if (text.ends_with(GridDecimalMark)) {
        text.pop_back();  // a number code shows its decimal mark even without decimals
    }
    return QString::fromStdString(text);
}

}  // namespace

DesktopControl::DesktopControl(PlanViewWidget& widget, const Platform& given)
    : messageBoxes(widget),
      forms(widget),
      popups(widget),
      fileDialogs(widget),
      progress(widget),
      sink(widget),
      view(Completed(given, {.messageBoxes = &messageBoxes,
                             .forms = &forms,
                             .clipboard = &clipboard,
                             .system = &system,
                             .popups = &popups,
                             .fileDialogs = &fileDialogs,
                             .objects = &objects,
                             .progress = &progress})) {
    view.AddSink(sink);
}

PlanViewWidget::PlanViewWidget(QWidget* parent) : PlanViewWidget(Platform(), parent) {}

PlanViewWidget::PlanViewWidget(const Platform& platform, QWidget* parent)
    : QWidget(parent), state_(std::make_unique<State>(*this, platform)) {
    qRegisterMetaType<ObjectRef>("planview::ObjectRef");
    qRegisterMetaType<MacroResult>("planview::MacroResult");
    PlanView& view = state_->core->view;
    const ControlParts parts(view);
    state_->grid = new GridView(parts.Grid(), state_->core);
    state_->core->popups.setGrid(state_->grid);
    state_->chart = new ChartView(parts.Chart(), state_->core);
    state_->core->popups.setChart(state_->chart);
    state_->tree = new TreePane(parts.Tree(), state_->grid->bitmaps(), state_->core);
    state_->core->popups.setTree(&state_->tree->view());
    auto* toolbar = new ToolbarView(
        parts.Toolbar(), state_->grid->bitmaps(), [&grid = parts.Grid()] { return SelectionText(grid); }, state_->core);
    auto* macro = new MacroPane(parts.Editor(), state_->grid->bitmaps(), state_->core);
    auto* operands = new OperandPane(parts.Editor(), state_->grid->bitmaps(), state_->core);
    state_->panes = new PaneHost(parts.Panes(), parts.Editor(),
                                 {state_->grid, state_->chart, state_->tree, toolbar, macro, operands}, this);
    state_->panes->setLeave([this](bool forward) {
        static const QMetaMethod Left = QMetaMethod::fromSignal(&PlanViewWidget::panesLeft);
        if (!isSignalConnected(Left)) {
            return false;
        }
        Q_EMIT panesLeft(forward);
        return true;
    });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(state_->panes);
    setFocusProxy(state_->grid);
    state_->status = new StatusInfo(*this, view, *state_->grid, state_->guard);
    state_->bulkListener = view.Editing().AddBulkListener([this](bool running) {
        state_->announcesSeveral = running;
        if (!running) {
            Q_EMIT severalValuesAnnounced();
        }
    });
    state_->hintListener =
        view.Editing().AddHintListener([this, &grid = parts.Grid()](const CellKey& key, std::string_view reason) {
            const std::optional<Cell> cell = grid.FindCell(key);
            return cell && isVisible() &&
                   state_->grid->editor().tell(*cell,
                                               QString::fromUtf8(reason.data(), static_cast<qsizetype>(reason.size())));
        });
    state_->failureListener = view.Diagnostics().AddFailureListener([this](const Failure& failure) {
        Q_EMIT failed(QString::fromStdString(failure.table), QString::fromStdString(failure.field), failure.row,
                      QString::fromStdString(failure.reason));
    });
    state_->grid->setExplanation([this](Cell cell) {
        PlanView& control = state_->core->view;
        return QString::fromStdString(control.Calculation().Explain(ControlParts(control).Grid().KeyOf(cell)));
    });
    state_->outcomeListener = view.Editing().AddOutcomeListener([this](std::string_view sentence) {
        announce(QString::fromUtf8(sentence.data(), static_cast<qsizetype>(sentence.size())));
    });
    state_->recordingListener = view.Recording().AddListener([this] { Q_EMIT recordingChanged(); });
    state_->actions = new CommandActions(*this, view, *state_->grid, state_->guard);
    state_->actions->setMacros(parts.Editor(), {state_->tree, toolbar, macro, operands});
    connect(this, &PlanViewWidget::MacroTreeExpand, state_->actions, &CommandActions::changed);
    state_->commandListener = view.AddCommandListener([this] { state_->actions->changed(); });
    const auto valuesChanged = [this] { state_->status->valuesChanged(); };
    connect(this, &PlanViewWidget::GridValueChanged, state_->status, valuesChanged);
    connect(this, &PlanViewWidget::GridStartUpdate, state_->status, valuesChanged);
    connect(state_->grid, &GridView::textScaleChanged, this, &PlanViewWidget::textScaleChanged);
    state_->guard.connect(qApp, &QApplication::focusChanged, this, "FocusChanged",
                          [this](const QWidget* /*from*/, const QWidget* to) { state_->focusMoved(to); });
    state_->applyTheme();
}

PlanViewWidget::~PlanViewWidget() {
    disconnect(qApp, nullptr, this, nullptr);
    // The host is told nothing any more: it may be half gone itself.
    blockSignals(true);
    PlanView& view = state_->core->view;
    view.Editing().RemoveBulkListener(state_->bulkListener);
    view.Editing().RemoveHintListener(state_->hintListener);
    view.Diagnostics().RemoveFailureListener(state_->failureListener);
    view.Editing().RemoveOutcomeListener(state_->outcomeListener);
    view.Recording().RemoveListener(state_->recordingListener);
    view.RemoveCommandListener(state_->commandListener);
    view.RemoveSink(state_->core->sink);
    // The control outlives the widget while one of its members is being called; its work ends here. It may ask, and
    // while it waits events and timers come: all that members and events use must still be there.
    view.Terminate();
    delete state_->actions;
    delete state_->status;
    delete state_->panes;
}

PlanView& PlanViewWidget::control() {
    return state_->core->view;
}

ObjectRegistry& PlanViewWidget::objects() {
    return state_->core->objects;
}

// --- Look

PlanViewWidget::ColorScheme PlanViewWidget::colorScheme() const {
    return state_->colorScheme;
}

void PlanViewWidget::setColorScheme(ColorScheme scheme) {
    if (state_->colorScheme == scheme) {
        return;
    }
    state_->colorScheme = scheme;
    state_->applyTheme();
    Q_EMIT colorSchemeChanged(scheme);
}

void PlanViewWidget::State::applyTheme() {
    const GridTheme theme = colorScheme == ColorScheme::System  ? GridTheme::forPalette(widget.palette())
                            : colorScheme == ColorScheme::Light ? GridTheme::light()
                                                                : GridTheme::darkTheme();
    panes->setTheme(theme);
    core->forms.setTheme(theme);
}

double PlanViewWidget::textScale() const {
    return state_->grid->textScale();
}

void PlanViewWidget::setTextScale(double scale) {
    state_->grid->setTextScale(scale);
}

void PlanViewWidget::registerBitmap(const QString& name, const QIcon& icon) {
    const std::string plainName = name.toStdString();
    state_->grid->bitmaps().add(plainName, icon);
    ControlParts(control()).Grid().RegisterBitmap(plainName);
    state_->grid->viewport()->update();
    state_->tree->update();
}

QImage PlanViewWidget::renderToImage(QSize size, qreal scale) {
    state_->status->update();
    return state_->panes->renderToImage(size, scale);
}

QImage PlanViewWidget::chartImage(QSize size, qreal scale) const {
    return state_->chart->picture().image(size, scale);
}

QString PlanViewWidget::saveChart(const QString& path, QSize size) const {
    return state_->chart->picture().save(path, size.isEmpty() ? ChartFileSize : size);
}

QSize PlanViewWidget::sizeHint() const {
    return UsualSize;
}

QSize PlanViewWidget::minimumSizeHint() const {
    return SmallestSize;
}

void PlanViewWidget::enterPanes(bool first) {
    state_->panes->enter(first);
}

void PlanViewWidget::announce(const QString& sentence) {
    planview::announce(*this, sentence);
}

// --- Commands

void PlanViewWidget::run(Command command) {
    if (state_->actions->runInEditor(command) || state_->actions->runInMacros(command)) {
        return;
    }
    const QPointer<PlanViewWidget> self(this);
    state_->runOnControl([&](PlanView& view) {
        const bool changesBack = command == Command::Undo || command == Command::Redo;
        view.Run(command);
        const std::optional<Cell> current = ControlParts(view).Grid().CurrentCell();
        if (self && changesBack && current) {
            state_->grid->ensureVisible(*current);
        }
    });
}

QAction* PlanViewWidget::action(Command command) {
    return state_->actions->action(command);
}

#define PLANVIEW_SLOT(NAME, COMMAND) \
    void PlanViewWidget::NAME() {    \
        run(Command::COMMAND);       \
    }
#include "qt/Slots.def"

void PlanViewWidget::raiseSelected(double percent) {
    state_->runOnControl([percent](PlanView& view) { view.Editing().RaiseSelected(percent); });
}

void PlanViewWidget::leaveForecastView() {
    state_->runOnControl([](PlanView& view) { view.View().LeaveForecastView(); });
}

bool PlanViewWidget::canUndo() const {
    return state_->actions->canRun(Command::Undo);
}

bool PlanViewWidget::canRedo() const {
    return state_->actions->canRun(Command::Redo);
}

void PlanViewWidget::keyPressEvent(QKeyEvent* event) {
    if (const CommandRow* row = FindCommand(keyStrokeOf(*event), KeyScope::Control)) {
        run(row->command);
    } else {
        QWidget::keyPressEvent(event);
    }
}

bool PlanViewWidget::chartShown() const {
    return state_->core->view.View().ChartShown();
}

bool PlanViewWidget::isReadOnly() const {
    return state_->core->view.Editing().IsReadOnly();
}

void PlanViewWidget::setReadOnly(bool readOnly) {
    state_->core->view.Editing().SetReadOnly(readOnly);
}

bool PlanViewWidget::finishEditing() {
    return state_->grid->finishEditing();
}

bool PlanViewWidget::selectCell(const QString& column, const QString& row) {
    const std::shared_ptr<DesktopControl> core = state_->core;
    const QPointer<PlanViewWidget> self(this);
    if (!finishEditing() || !self) {
        return false;
    }
    GridControl& grid = ControlParts(core->view).Grid();
    const std::string columnKey = column.toStdString();
    const std::string rowKey = row.toStdString();
    const std::optional<Cell> cell = grid.FindCell({columnKey, rowKey});
    if (!cell) {
        return false;
    }
    const bool selected = grid.SelectCell(*cell, SelectionMode::Replace) == GridStatus::Ok;
    if (selected && self) {
        state_->grid->ensureVisible(*cell);
        state_->status->gridChanged();
    }
    return selected;
}

// --- Status

QString PlanViewWidget::currentColumn() const {
    const GridControl& grid = ControlParts(state_->core->view).Grid();
    const std::optional<Cell> cell = grid.CurrentCell();
    return cell ? QString::fromStdString(grid.Column(cell->column).key) : QString();
}

QString PlanViewWidget::currentRow() const {
    const GridControl& grid = ControlParts(state_->core->view).Grid();
    const std::optional<Cell> cell = grid.CurrentCell();
    return cell ? QString::fromStdString(grid.Row(cell->row).key) : QString();
}

QString PlanViewWidget::currentCellName() const {
    return state_->status->cellName();
}

QString PlanViewWidget::cellFormula(const QString& column, const QString& row) const {
    return QString::fromStdString(
        state_->core->view.Calculation().FormulaOf({column.toStdString(), row.toStdString()}));
}

int PlanViewWidget::selectedCells() const {
    return state_->status->summary().cells;
}

QString PlanViewWidget::selectionSum() const {
    const SelectionSummary& summary = state_->status->summary();
    return summary.numbers > 0 ? shownNumber(summary.sum) : QString();
}

QString PlanViewWidget::selectionMean() const {
    const std::optional<double> mean = state_->status->summary().Mean();
    return mean ? shownNumber(*mean) : QString();
}

bool PlanViewWidget::isAnnouncingSeveral() const {
    return state_->announcesSeveral;
}

int PlanViewWidget::pendingChanges() const {
    return state_->status->pending();
}

void PlanViewWidget::refreshPendingChanges() {
    state_->status->valuesChanged();
    state_->status->update();
}

// --- What the window tells the control

void PlanViewWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        state_->guard.run("PaletteChange", [this] {
            state_->applyTheme();
            state_->actions->updateIcons();
        });
    }
}

void PlanViewWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    state_->guard.run("Resize", [&] { control().View().Resize(event->size().width(), event->size().height()); });
}

void PlanViewWidget::State::focusMoved(const QWidget* to) {
    actions->changed();
    const bool inside = to && (to == &widget || widget.isAncestorOf(to));
    if (inside == hasFocus) {
        return;
    }
    hasFocus = inside;
    guard.run("FocusChanged", [&view = core->view, inside] {
        if (inside) {
            view.View().EnterFocus();
            view.View().GotFocus();
        } else {
            view.View().LostFocus();
            view.View().ExitFocus();
        }
    });
}

}  // namespace planview
