// SPDX-License-Identifier: MIT
#include "qt/macro/MacroPane.h"

#include <QStyle>
#include <QVBoxLayout>

#include "qt/AssistiveTools.h"

namespace planview {

namespace {

constexpr int MessageSideMargin = 8;
constexpr int MessageMargin = 6;

}  // namespace

MacroPane::MacroPane(MacroEditor& editor, GridBitmaps& bitmaps, std::shared_ptr<void> owner, QWidget* parent)
    : EditorPane(tr("Macro"), editor, bitmaps, std::move(owner), parent),
      buttons_(new EditorButtons),
      view_(new MacroListView(editor, bitmaps, guard())),
      message_(new QLabel) {
    setObjectName(QLatin1String("MacroPane"));
    message_->setObjectName(QLatin1String("EditorMessage"));
    message_->setWordWrap(true);
    message_->setTextFormat(Qt::PlainText);
    message_->setMinimumWidth(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(heading());
    layout->addWidget(buttons_);
    layout->addWidget(view_, 1);
    layout->addWidget(message_);
    setFocusProxy(view_);
    addButtons();
    connect(view_, &MacroListView::deleteWanted, this, [this] { act([](MacroEditor& target) { target.Delete(); }); });
    connect(view_, &MacroListView::moveWanted, this,
            [this](bool up) { act([up](MacroEditor& target) { target.Move(up); }); });
    connect(view_, &MacroListView::runWanted, this, [this] { act([](MacroEditor& target) { target.Run(); }); });
    showLook();
    follow();
}

void MacroPane::addButtons() {
    using Action = std::function<void(MacroEditor&)>;
    const auto add = [this](const char* name, const char* icon, const QString& tooltip, bool group, Action action) {
        QToolButton* button = buttons_->add(name, icon, tooltip, group);
        connect(button, &QToolButton::clicked, this, [this, action = std::move(action)] { act(action); });
        return button;
    };
    const auto spot = [](MacroSpot where) { return [where](MacroEditor& target) { target.SetSpot(where); }; };
    add("NewMacro", "macro-new", tr("New macro"), false, [](MacroEditor& target) { target.NewMacro(); });
    needMacro_.push_back(add("RunMacro", "macro-run", tr("Run the macro (Ctrl+Return)"), false,
                             [](MacroEditor& target) { target.Run(); }));
    preview_ = add("PreviewMacro", "macro-preview", tr("Show what the macro changes, before it does"), false,
                   [](MacroEditor& target) { target.Preview(); });
    needMacro_.push_back(
        add("Generate", "macro-generate", tr("Check the macro"), false, [](MacroEditor& target) { target.Check(); }));
    before_ = add("Insert", "macro-insert", tr("Insert: the next element goes before this one"), true,
                  spot(MacroSpot::Before));
    after_ = add("Add", "macro-add", tr("Add: the next element goes behind this one"), false, spot(MacroSpot::After));
    inside_ = add("NextLevel", "macro-inside", tr("Next level: the next element goes into this one"), false,
                  spot(MacroSpot::Inside));
    for (QToolButton* button : {before_, after_, inside_}) {
        button->setCheckable(true);
        needMacro_.push_back(button);
    }
    QToolButton* rename = buttons_->add("Rename", "macro-rename", tr("Rename (F2)"), true);
    guard().connect(rename, &QToolButton::clicked, this, "Rename", [this] { view_->editName(); });
    needMacro_.push_back(rename);
    needElement_.push_back(
        add("MoveUp", "arrow-up", tr("Move up (Alt+Up)"), false, [](MacroEditor& target) { target.Move(true); }));
    needElement_.push_back(add("MoveDown", "arrow-down", tr("Move down (Alt+Down)"), false,
                               [](MacroEditor& target) { target.Move(false); }));
    needMacro_.push_back(add("Delete", "macro-delete", tr("Delete, with all that is in it (Del)"), false,
                             [](MacroEditor& target) { target.Delete(); }));
}

void MacroPane::follow() {
    const bool hasMacro = !editor().MacroKey().empty();
    const int current = editor().Current();
    for (QToolButton* button : needMacro_) {
        button->setEnabled(hasMacro);
    }
    for (QToolButton* button : needElement_) {
        button->setEnabled(current > 0);
    }
    preview_->setEnabled(hasMacro && !editor().IsRecording());
    const auto check = [&](QToolButton* button, bool checked) { button->setChecked(hasMacro && checked); };
    check(before_, editor().Spot() == MacroSpot::Before);
    check(after_, editor().Spot() == MacroSpot::After);
    check(inside_, editor().Spot() == MacroSpot::Inside);
    view_->follow();
    const QString hint = hasMacro ? QString() : tr("Select a macro in the tree, or make a new one.");
    const QString text = QString::fromStdString(editor().Message());
    if (!text.isEmpty() && text != message_->text()) {
        announce(*this, text);
    }
    message_->setText(text.isEmpty() ? hint : text);
    message_->setVisible(!message_->text().isEmpty());
    message_->setProperty("problem", !text.isEmpty() && editor().MessageIsProblem());
    message_->style()->unpolish(message_);
    message_->style()->polish(message_);
}

void MacroPane::showLook() {
    EditorPane::showLook();
    setStyleSheet(editorStyleSheet(theme(), scale()));
    // Not in the style sheet: a label loses its margins when its style is polished again.
    const int side = scaled(MessageSideMargin);
    const int margin = scaled(MessageMargin);
    message_->setContentsMargins(side, margin, side, margin);
    buttons_->setLook(bitmaps(), theme(), scale());
    view_->setLook(theme(), scale());
}

}  // namespace planview
