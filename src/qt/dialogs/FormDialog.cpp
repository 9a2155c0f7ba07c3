// SPDX-License-Identifier: MIT
#include "qt/dialogs/FormDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace planview {

namespace {

constexpr int EdgeSpace = 18;
constexpr int RowSpace = 6;
constexpr int SectionSpace = 14;

}  // namespace

FormDialog::FormDialog(PropertyForm& form, QWidget* parent)
    : ThemedDialog(form.TraceLabel(), parent), form_(form), content_(new QVBoxLayout(this)) {
    content_->setContentsMargins(EdgeSpace, EdgeSpace, EdgeSpace, EdgeSpace);
    content_->setSpacing(0);
    content_->setSizeConstraint(QLayout::SetFixedSize);
}

void FormDialog::setTheme(const GridTheme& theme) {
    ThemedDialog::setTheme(theme);
    theme_ = theme;
    for (ColorButton* button : colors_) {
        button->setTheme(theme);
    }
}

void FormDialog::setVisible(bool visible) {
    if (visible && !isVisible()) {
        if (!std::exchange(built_, true)) {
            build();
            content_->addSpacing(EdgeSpace);
            addButtons(*content_, form_.cmdOkCaption, form_.cmdCancelCaption);
            setTheme(theme_);
        }
        showState();
        if (!focusWidget()) {
            focusNextChild();  // the first control
        }
    }
    ThemedDialog::setVisible(visible);
}

void FormDialog::accept() {
    if (!hasEnded()) {
        guard().run("cmdOk_Click", [this] { form_.cmdOk_Click(); });  // hides the window
    }
}

void FormDialog::reject() {
    if (!hasEnded()) {
        guard().run("cmdCancel_Click", [this] { form_.cmdCancel_Click(); });
    }
}

QGridLayout* FormDialog::addSection(QVBoxLayout& column, const QString& title) {
    if (column.count() > 0) {
        column.addSpacing(SectionSpace);
    }
    auto* group = new QGroupBox(title, this);
    group->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* section = new QGridLayout(group);
    section->setContentsMargins(0, 0, 0, 0);
    section->setHorizontalSpacing(14);
    section->setVerticalSpacing(RowSpace);
    section->setColumnStretch(1, 1);
    column.addWidget(group);
    return section;
}

void FormDialog::addRow(QGridLayout& section, const QString& caption, QWidget* field) const {
    const int row = section.rowCount();
    auto* label = new QLabel(caption);
    label->setBuddy(field);
    section.addWidget(label, row, 0);
    section.addWidget(field, row, 1);
}

QCheckBox* FormDialog::addCheckBox(QGridLayout& section, CheckBox& state, char mnemonic) {
    auto* box = new QCheckBox(withMnemonic(state.Caption, mnemonic), this);
    section.addWidget(box, section.rowCount(), 0, 1, 2);
    guard().connect(box, &QCheckBox::toggled, this, "Tick", [this, &state](bool on) {
        state.Value = on ? 1 : 0;
        stateChanged();
    });
    showers_.emplace_back([box, &state] {
        const QSignalBlocker quiet(box);
        box->setChecked(state.Value == 1);
    });
    return box;
}

void FormDialog::addOptions(QGridLayout& section, std::span<OptionButton> options, std::string_view mnemonics,
                            Qt::Orientation orientation) {
    constexpr int SpaceBeside = 14;
    constexpr int SpaceBelow = 2;
    auto* group = new QWidget(this);  // makes the buttons exclude each other
    auto* layout = new QGridLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(SpaceBeside);
    layout->setVerticalSpacing(SpaceBelow);
    const bool beside = orientation == Qt::Horizontal;
    for (std::size_t i = 0; i < options.size(); ++i) {
        const int place = static_cast<int>(i);
        addOption(*layout, group, options[i], withMnemonic(options[i].Caption, mnemonics[i]), beside ? 0 : place,
                  beside ? place : 0);
    }
    layout->setColumnStretch(layout->columnCount(), 1);
    showers_.emplace_back([group] {
        const QList<QRadioButton*> all = group->findChildren<QRadioButton*>();
        const bool chosen = std::any_of(all.begin(), all.end(), [](const auto* each) { return each->isChecked(); });
        for (QRadioButton* each : all) {
            // Tab leads to the chosen one, arrow keys to the others.
            each->setFocusPolicy(each->isChecked() || !chosen ? Qt::StrongFocus : Qt::ClickFocus);
        }
    });
    section.addWidget(group, section.rowCount(), 0, 1, 2);
}

void FormDialog::addOption(QGridLayout& section, QWidget* group, OptionButton& state, const QString& caption, int row,
                           int column) {
    auto* button = new QRadioButton(caption, group);
    section.addWidget(button, row, column);
    guard().connect(button, &QRadioButton::toggled, this, "Choose", [this, button, &state](bool on) {
        state.Value = on;
        button->setFocusPolicy(on ? Qt::StrongFocus : Qt::ClickFocus);
        if (on) {
            stateChanged();
        }
    });
    showers_.emplace_back([button, &state] {
        // The chosen button unchecks the others.
        if (state.Value) {
            button->setChecked(true);
        }
    });
}

QComboBox* FormDialog::addList(QGridLayout& section, ListBox& state, const QString& caption, int width) {
    auto* list = new QComboBox(this);
    list->setMinimumWidth(width);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);  // however long an item is
    for (const std::string& item : state.Items) {
        list->addItem(item.empty() ? tr("As the view") : QString::fromStdString(item));
    }
    addRow(section, caption, list);
    guard().connect(list, &QComboBox::currentIndexChanged, this, "Choose", [this, &state](int index) {
        state.ListIndex = index;
        stateChanged();
    });
    showers_.emplace_back([list, &state] {
        const QSignalBlocker quiet(list);
        list->setCurrentIndex(state.ListIndex);
    });
    return list;
}

QLineEdit* FormDialog::addText(QGridLayout& section, std::string& state, const QString& caption, int width) {
    auto* field = new QLineEdit(this);
    field->setFixedWidth(width);
    addRow(section, caption, field);
    guard().connect(field, &QLineEdit::textChanged, this, "EnterText", [this, &state](const QString& text) {
        state = text.toStdString();
        stateChanged();
    });
    showers_.emplace_back([field, &state] {
        const QSignalBlocker quiet(field);
        field->setText(QString::fromStdString(state));
    });
    return field;
}

ColorButton* FormDialog::addColor(QGridLayout& section, ColorBox& state, char mnemonic, std::function<void()> click) {
    auto* button = new ColorButton(state.Own(), QString::fromStdString(state.Caption), this);
    addRow(section, withMnemonic(state.Caption, mnemonic), button);
    guard().connect(button, &QPushButton::clicked, this, "ChooseColor",
                    [this, button, &state, click = std::move(click)] {
                        const QPointer<FormDialog> self(this);
                        button->setFocus();  // the popup opens below it
                        click();
                        if (self && isVisible()) {
                            button->setColor(state.Get());
                            stateChanged();
                        }
                    });
    showers_.emplace_back([button, &state] { button->setColor(state.Get()); });
    colors_.push_back(button);
    return button;
}

void FormDialog::showState() {
    for (const std::function<void()>& show : showers_) {
        show();
    }
}

}  // namespace planview
