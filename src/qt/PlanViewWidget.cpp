#include <QApplication>
#include <QEvent>
#include <QResizeEvent>
#include <QVBoxLayout>

#include <planview/qt/PlanViewWidget.h>

#include "qt/PlanViewState.h"

namespace planview {

namespace {

constexpr QSize UsualSize(900, 500);
constexpr QSize SmallestSize(240, 120);

template <class Interface>
Interface& chosen(Interface* override, Interface& own) {
    return override ? *override : own;
}

}  // namespace

PlanViewCore::PlanViewCore(PlanViewWidget& widget, const PlatformOverrides& overrides)
    : messageBoxes(widget),
      forms(widget),
      sink(widget),
      view(Platform{chosen<MessageBoxes>(overrides.messageBoxes, messageBoxes), chosen<Forms>(overrides.forms, forms),
                    chosen<SystemInformation>(overrides.system, system)}) {
    view.AddSink(sink);
}

PlanViewWidget::PlanViewWidget(QWidget* parent) : PlanViewWidget(PlatformOverrides(), parent) {}

PlanViewWidget::PlanViewWidget(const PlatformOverrides& platform, QWidget* parent)
    : QWidget(parent), state_(std::make_unique<State>()) {
    qRegisterMetaType<ObjectRef>("planview::ObjectRef");
    state_->core = std::make_shared<PlanViewCore>(*this, platform);
    state_->grid = new GridView(state_->core->view.Grid(), state_->core, this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(state_->grid);
    setFocusProxy(state_->grid);
    connect(state_->grid, &GridView::textScaleChanged, this, &PlanViewWidget::textScaleChanged);
    connect(qApp, &QApplication::focusChanged, this, &PlanViewWidget::focusMoved);
    applyTheme();
}

PlanViewWidget::~PlanViewWidget() {
    disconnect(qApp, nullptr, this, nullptr);
    delete state_->grid;
    // The control itself may have to wait for a member that is being called; its work ends here.
    state_->core->view.RemoveSink(state_->core->sink);
    state_->core->view.Terminate();
}

PlanView& PlanViewWidget::control() {
    return state_->core->view;
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
    applyTheme();
    Q_EMIT colorSchemeChanged(scheme);
}

void PlanViewWidget::applyTheme() {
    switch (state_->colorScheme) {
        case ColorScheme::System:
            state_->grid->setTheme(GridTheme::forPalette(palette()));
            break;
        case ColorScheme::Light:
            state_->grid->setTheme(GridTheme::light());
            break;
        case ColorScheme::Dark:
            state_->grid->setTheme(GridTheme::darkTheme());
            break;
    }
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
    control().Grid().RegisterBitmap(plainName);
    state_->grid->viewport()->update();
}

QImage PlanViewWidget::renderToImage(QSize size, qreal scale) {
    return state_->grid->renderToImage(size, scale);
}

QSize PlanViewWidget::sizeHint() const {
    return UsualSize;
}

QSize PlanViewWidget::minimumSizeHint() const {
    return SmallestSize;
}

// --- What the window tells the control

void PlanViewWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        applyTheme();
    }
}

void PlanViewWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    control().Resize(event->size().width(), event->size().height());
}

void PlanViewWidget::focusMoved(QWidget* /*from*/, QWidget* to) {
    const bool inside = to && (to == this || isAncestorOf(to));
    if (inside == state_->hasFocus) {
        return;
    }
    state_->hasFocus = inside;
    if (inside) {
        control().EnterFocus();
        control().GotFocus();
    } else {
        control().LostFocus();
        control().ExitFocus();
    }
}

}  // namespace planview
