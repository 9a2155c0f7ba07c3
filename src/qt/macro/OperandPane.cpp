// SPDX-License-Identifier: MIT
#include "qt/macro/OperandPane.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollArea>
#include <QVBoxLayout>

#include "formula/FormulaExpression.h"
#include "qt/macro/EditorButtons.h"
#include "qt/platform/MenuLetters.h"

namespace planview {

namespace {

constexpr int KeyHeight = 26;
constexpr int KeyMargin = 2;
constexpr int LeastTextPixels = 8;
constexpr int SideMargin = 8;
constexpr int Gap = 3;
constexpr int Columns = 4;
constexpr auto Erase = "⌫";
constexpr auto Return = "↵";

struct Key {
    const char* text;
    const char* name;  ///< read aloud
};

constexpr Key Keys[] = {
    {"7", "7"},
    {"8", "8"},
    {"9", "9"},
    {"/", "Divided by"},
    {"4", "4"},
    {"5", "5"},
    {"6", "6"},
    {"*", "Times"},
    {"1", "1"},
    {"2", "2"},
    {"3", "3"},
    {"-", "Minus"},
    {"0", "0"},
    {",", "Decimal mark"},
    {Erase, "Erase the last character"},
    {"+", "Plus"},
    {"(", "Open a bracket"},
    {")", "Close the bracket, or leave the function"},
    {";", "Next argument of the function"},
    {Return, "Next statement"},
    {"=", "Equal to"},
    {"<", "Less than"},
    {">", "Greater than"},
    {"AND", "And"},
    {"<>", "Not equal to"},
    {"<=", "Less than or equal to"},
    {">=", "Greater than or equal to"},
    {"OR", "Or"},
};

bool isDigit(const QString& text) {
    return text == QLatin1String(",") || (text.size() == 1 && text[0].isDigit());
}

}  // namespace

OperandPane::OperandPane(MacroEditor& editor, GridBitmaps& bitmaps, std::shared_ptr<void> owner, QWidget* parent)
    : EditorPane(tr("Operand"), editor, bitmaps, std::move(owner), parent),
      area_(new QScrollArea),
      body_(new QWidget),
      completions_(new QStringListModel(this)) {
    setObjectName(QLatin1String("OperandPane"));
    body_->setObjectName(QLatin1String("OperandBody"));
    auto* grid = new QGridLayout(body_);
    grid->setSpacing(Gap);
    addField(*grid);
    addKeys(*grid);
    addMore(*grid);
    grid->setRowStretch(grid->rowCount(), 1);
    body_->installEventFilter(this);
    area_->setWidget(body_);
    area_->setWidgetResizable(true);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(heading());
    layout->addWidget(area_, 1);
    setFocusProxy(field_);
    showLook();
    follow();
}

void OperandPane::addField(QGridLayout& layout) {
    field_ = new QLineEdit;
    field_->setObjectName(QLatin1String("txtOpa"));
    field_->setAccessibleName(tr("Operand: a number, or the caption of a line"));
    field_->setPlaceholderText(tr("Number or line"));
    field_->setMinimumWidth(1);
    completer_ = new QCompleter(completions_, this);
    completer_->setCaseSensitivity(Qt::CaseInsensitive);
    completer_->setFilterMode(Qt::MatchContains);
    field_->setCompleter(completer_);
    field_->installEventFilter(this);
    guard().connect(field_, &QLineEdit::textChanged, this, "OperandChanged",
                    [this](const QString& text) { editor().SetOperandText(text.toStdString()); });
    connect(field_, &QLineEdit::returnPressed, this, [this] {
        if (!completer_->popup()->isVisible()) {
            act([](MacroEditor& target) { target.TakeOperand(); });
        }
    });
    layout.addWidget(field_, 0, 0, 1, Columns);
    take_ = new QPushButton;
    take_->setObjectName(QLatin1String("cmdOpa"));
    take_->setMinimumWidth(1);
    take_->setAutoDefault(false);
    connect(take_, &QPushButton::clicked, this, [this] { act([](MacroEditor& target) { target.TakeOperand(); }); });
    layout.addWidget(take_, 1, 0, 1, Columns);
}

QToolButton* OperandPane::addKey(QGridLayout& layout, int row, int column, const QString& text, const QString& name) {
    auto* key = new QToolButton;
    key->setText(text);
    key->setToolTip(name.toHtmlEscaped());
    key->setAccessibleName(name);
    key->setFocusPolicy(Qt::TabFocus);
    key->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    layout.addWidget(key, row, column);
    keys_.push_back(key);
    return key;
}

/// `cmdOpe`.
void OperandPane::addKeys(QGridLayout& layout) {
    int place = 0;
    for (const Key& entry : Keys) {
        const QString text = QString::fromUtf8(entry.text);
        QToolButton* key = addKey(layout, 2 + place / Columns, place % Columns, text, tr(entry.name));
        key->setObjectName(QLatin1String("cmdOpe ") + text);
        key->setProperty("digit", isDigit(text));
        ++place;
        if (text == QString::fromUtf8(Return)) {
            connect(key, &QToolButton::clicked, this,
                    [this] { act([](MacroEditor& target) { target.NextStatement(); }); });
        } else if (isDigit(text) || text == QString::fromUtf8(Erase)) {
            connect(key, &QToolButton::clicked, this, [this, text] { type(text); });
        } else {
            connect(key, &QToolButton::clicked, this, [this, value = text.toStdString()] {
                act([&](MacroEditor& target) { target.AddOperator(value); });
            });
        }
    }
}

void OperandPane::addMore(QGridLayout& layout) {
    const int row = layout.rowCount();
    QToolButton* functions = addKey(layout, row, 0, tr("Function ▾"), tr("Add a function"));
    functions->setObjectName(QLatin1String("cmdFunction"));
    layout.addWidget(functions, row, 0, 1, 2);
    functions->setPopupMode(QToolButton::InstantPopup);
    addMenu(functions);
    QToolButton* condition = addKey(layout, row, 2, tr("If"), tr("Add a condition"));
    condition->setObjectName(QLatin1String("cmdIf"));
    connect(condition, &QToolButton::clicked, this,
            [this] { act([](MacroEditor& target) { target.AddCondition(false); }); });
    QToolButton* otherwise =
        addKey(layout, row, 3, tr("Else"), tr("Add what happens where the condition does not hold"));
    otherwise->setObjectName(QLatin1String("cmdElse"));
    connect(otherwise, &QToolButton::clicked, this,
            [this] { act([](MacroEditor& target) { target.AddCondition(true); }); });
}

void OperandPane::addMenu(QToolButton* button) {
    auto* menu = new QMenu(button);
    for (const FormulaFunctionName& function : FormulaFunctions()) {
        const auto text = [](std::string_view view) {
            return QString::fromUtf8(view.data(), static_cast<qsizetype>(view.size()));
        };
        QAction* action = menu->addAction(text(function.caption));
        action->setToolTip(text(function.takes).toHtmlEscaped());
        connect(action, &QAction::triggered, this, [this, value = std::string(function.value)] {
            act([&](MacroEditor& target) { target.AddFunction(value); });
        });
    }
    giveLetters(*menu);
    menu->setToolTipsVisible(true);
    button->setMenu(menu);
}

/// A key of the pad: what the user would have typed.
void OperandPane::type(const QString& digit) {
    QString text = field_->text();
    if (digit == QString::fromUtf8(Erase)) {
        text.chop(1);
    } else {
        text += digit;
    }
    field_->setText(text);
}

void OperandPane::follow() {
    const QString text = QString::fromStdString(editor().OperandText());
    if (field_->text() != text) {
        field_->setText(text);
    }
    const bool hasText = !text.trimmed().isEmpty();
    take_->setText(hasText ? tr("Take") : tr("From grid"));
    const QString name = hasText ? tr("Take over what is entered above") : tr("Take over what is selected in the grid");
    take_->setToolTip(name);
    take_->setAccessibleName(name);
    const bool usable = !editor().MacroKey().empty() && !editor().IsRecording();
    body_->setEnabled(usable);
}

/// Shrinks texts that their keys would cut.
void OperandPane::fitKeys() {
    for (QToolButton* key : keys_) {
        QFont font = key->font();
        const int usual = scaled(EditorTextPixels);
        int pixels = usual;
        for (font.setPixelSize(pixels); pixels > LeastTextPixels && QFontMetrics(font).horizontalAdvance(key->text()) >
                                                                        key->width() - 2 * KeyMargin;
             font.setPixelSize(pixels)) {
            --pixels;
        }
        const QString sheet = pixels == usual ? QString() : QStringLiteral("font-size: %1px;").arg(pixels);
        if (key->styleSheet() != sheet) {
            key->setStyleSheet(sheet);
        }
    }
}

void OperandPane::offerCompletions() {
    QStringList texts;
    for (const std::string& text : editor().Completions()) {
        texts.push_back(QString::fromStdString(text));
    }
    completions_->setStringList(texts);
}

bool OperandPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == body_ && event->type() == QEvent::Resize) {
        fitKeys();
    }
    // Completions are fetched when the user enters the field.
    if (watched == field_ && event->type() == QEvent::FocusIn) {
        guard().run("Completions", [this] { offerCompletions(); });
    }
    return EditorPane::eventFilter(watched, event);
}

void OperandPane::showLook() {
    EditorPane::showLook();
    const QString sheet = editorStyleSheet(theme(), scale());
    setStyleSheet(
        sheet +
        QStringLiteral("QScrollArea, QWidget#OperandBody { background: %1; }").arg(QColor(theme().panel).name()));
    completer_->popup()->setPalette(theme().widgetPalette(palette()));
    completer_->popup()->setStyleSheet(sheet);
    body_->layout()->setContentsMargins(scaled(SideMargin), 0, scaled(SideMargin), scaled(SideMargin));
    for (QToolButton* key : keys_) {
        key->setFixedHeight(scaled(KeyHeight));
    }
    take_->setFixedHeight(scaled(KeyHeight));
    field_->setFixedHeight(scaled(KeyHeight));
    fitKeys();
}

}  // namespace planview
