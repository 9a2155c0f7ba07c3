// SPDX-License-Identifier: MIT
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <algorithm>

#include "dialogs/frmGrid.h"
#include "dialogs/frmRow.h"
#include "qt/WhenShown.h"
#include "qt/dialogs/ColorButton.h"
#include "qt/dialogs/FormDialog.h"
#include "qt/grid/GridView.h"
#include "qt/platform/QtForms.h"
#include "support/ContextOnTables.h"

namespace planview {

namespace {

/// A control whose forms are real windows; everything else is scripted.
class QtDesktop : public test::ScriptedPlatform, public test::ContextOnTables {
public:
    QtDesktop()
        : ContextOnTables(Interfaces()),
          widget(std::make_unique<QWidget>()),
          forms(std::make_unique<QtForms>(*widget)) {
        widget->resize(400, 300);
        for (int i = 1; i <= 4; ++i) {
            tables.AddColumn(i, ("2026-0" + std::to_string(i)).c_str());
        }
        tables.AddLine(1, "Sales, north & south", {{"ROW_FORMAT", "#,##0.0"}, {"ROW_BG", 15}, {"ROW_HEIGHT", 26}});
        tables.AddLine(2, "Costs", {{"ROW_FONT", "Arial;12;Bold"}, {"ROW_ALIGN", 1}});
        for (int column = 1; column <= 4; ++column) {
            tables.AddValue(1, column, (column - 2) * 1234.5);
        }
        Build();
        context.shared.settings.layoutMode = true;
        context.shared.chooseColor = [this](const ColorQuestion&) { return chosenColor; };
    }
    void selectRow(const char* key) {
        context.grid.control.ClearSelection();
        context.grid.control.SetSelection({"", key}, true);
    }

    void Load(Form& form) override { forms->Load(form); }
    void ShowModal(Form& form) override { forms->ShowModal(form); }
    void Hide(Form& form) override { forms->Hide(form); }
    void Unload(Form& form) override { forms->Unload(form); }

    std::unique_ptr<QWidget> widget;
    std::unique_ptr<QtForms> forms;
    std::optional<int> chosenColor;
};

template <class Button>
Button* button(QWidget& window, const QString& text) {
    for (Button* candidate : window.findChildren<Button*>()) {
        if (candidate->text().remove(QLatin1Char('&')) == text) {
            return candidate;
        }
    }
    return nullptr;
}

ColorButton* colorButton(QWidget& window, const QString& what) {
    for (ColorButton* candidate : window.findChildren<ColorButton*>()) {
        if (candidate->accessibleName().startsWith(what)) {
            return candidate;
        }
    }
    return nullptr;
}

/// The letters that Alt leads with.
QString mnemonics(QWidget& window) {
    QString letters;
    const auto add = [&letters](QString text) {
        const qsizetype at = text.remove(QStringLiteral("&&")).indexOf(QLatin1Char('&'));
        if (at >= 0) {
            letters += text[at + 1].toLower();
        }
    };
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (label->buddy()) {
            add(label->text());
        }
    }
    for (const QAbstractButton* each : window.findChildren<QAbstractButton*>()) {
        add(each->text());
    }
    std::sort(letters.begin(), letters.end());
    return letters;
}

/// Texts that have less room than they need.
QStringList cutTexts(QWidget& window) {
    QStringList cut;
    for (const QWidget* child : window.findChildren<QWidget*>()) {
        const bool text = qobject_cast<const QAbstractButton*>(child) || qobject_cast<const QLabel*>(child);
        const auto* label = qobject_cast<const QLabel*>(child);
        if (text && child->isVisible() && !(label && label->wordWrap()) &&
            (child->width() < child->sizeHint().width() || child->height() < child->sizeHint().height())) {
            cut << child->metaObject()->className() + QStringLiteral(" ") +
                       (label ? label->text() : qobject_cast<const QAbstractButton*>(child)->text());
        }
    }
    return cut;
}

/// What Tab goes through.
QStringList tabOrder(QWidget& window) {
    QStringList order;
    QWidget* start = window.focusWidget();
    QWidget* now = start;
    do {
        const auto* each = qobject_cast<QAbstractButton*>(now);
        order << (each ? each->text().remove(QLatin1Char('&')) : QString::fromLatin1(now->metaObject()->className()));
        QTest::keyClick(now, Qt::Key_Tab);
        now = window.focusWidget();
    } while (now != start && order.size() < 50);
    return order;
}

const QString GridTabOrder = QStringLiteral(
    "Allow move of columns and rows, Allow resize of columns and rows, Drag and drop allowed, Fire single value "
    "changes, As the view, As the view, OK, Cancel");
const QString RowTabOrder = QStringLiteral(
    "Show in Chart, Relief, QLineEdit, Reset, Right, QComboBox, QComboBox, Normal, Light yellow, As the view, "
    "OK, Cancel");

QString name(bool dark) {
    return dark ? QStringLiteral("-dark") : QStringLiteral("-light");
}

}  // namespace

/// The property dialogs as real windows.
class DialogsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 10)); }

    void optionsAreChosenByKeyboardAndMouse() {
        QtDesktop desktop;
        desktop.chosenColor = 4;  // red
        whenShown<QDialog>([](QDialog* dialog) {
            QCOMPARE(dialog->windowTitle(), QStringLiteral("Grid general options"));
            auto* move = button<QCheckBox>(*dialog, QStringLiteral("Allow move of columns and rows"));
            QVERIFY(move && move->isChecked());
            QTest::keyClick(move, Qt::Key_Space);
            button<QRadioButton>(*dialog, QStringLiteral("Drag and drop only inside grid"))->click();
            ColorButton* ground = colorButton(*dialog, QStringLiteral("Background color"));
            QCOMPARE(ground->text(), QStringLiteral("As the view"));
            QTest::mouseClick(ground, Qt::LeftButton);
            QCOMPARE(ground->text(), QStringLiteral("Red"));
            move->setFocus();
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        desktop.context.grid.generalOptions.Run();
        QCOMPARE(desktop.context.shared.settings.moveAllowed, std::int16_t{0});
        QCOMPARE(desktop.context.shared.settings.dragMode, std::int16_t{2});
        QCOMPARE(desktop.context.shared.settings.backgroundColor, std::int16_t{5});
        QCOMPARE(desktop.tables.gridAttr->Value(1, "NOMOVE_ALLOWED").AsText(), std::string("X"));
    }

    void escapeAndTheFrameCancel() {
        QtDesktop desktop;
        for (const bool byFrame : {false, true}) {
            whenShown<QDialog>([byFrame](QDialog* dialog) {
                auto* move = button<QCheckBox>(*dialog, QStringLiteral("Allow move of columns and rows"));
                QVERIFY2(move->isChecked(), "each opening starts afresh");
                move->click();
                if (byFrame) {
                    dialog->close();
                } else {
                    QTest::keyClick(dialog, Qt::Key_Escape);
                }
            });
            desktop.context.grid.generalOptions.Run();
            QCOMPARE(desktop.context.shared.settings.moveAllowed, std::int16_t{1});
        }
    }

    /// Return belongs to the button that has the focus, elsewhere to the default one.
    void returnPressesTheButtonInFocus_data() {
        QTest::addColumn<QString>("focus");
        QTest::addColumn<bool>("staysOpen");
        QTest::addColumn<QString>("height");
        QTest::newRow("a field") << QString() << false << QStringLiteral("40");
        QTest::newRow("reset") << QStringLiteral("Reset") << true << QStringLiteral("22");
        QTest::newRow("a colour") << QStringLiteral("As the view") << true << QStringLiteral("40");
        QTest::newRow("cancel") << QStringLiteral("Cancel") << false << QStringLiteral("26");
    }
    void returnPressesTheButtonInFocus() {
        QFETCH(QString, focus);
        QFETCH(bool, staysOpen);
        QFETCH(QString, height);
        QtDesktop desktop;
        desktop.selectRow("ROW1");
        desktop.chosenColor = 4;  // red
        whenShown<QDialog>([&](QDialog* dialog) {
            auto* field = dialog->findChild<QLineEdit*>();
            field->setText(QStringLiteral("40"));
            QWidget* target = focus.isEmpty() ? static_cast<QWidget*>(field) : button<QPushButton>(*dialog, focus);
            target->setFocus();
            QTest::keyClick(target, Qt::Key_Return);
            QCOMPARE(dialog->isVisible(), staysOpen);
            if (staysOpen) {
                field->setFocus();
                QTest::keyClick(field, Qt::Key_Enter);
            }
        });
        desktop.context.grid.rowAttributes.Run();
        QCOMPARE(QString::fromStdString(desktop.tables.lineIndex->Value(1, "ROW_HEIGHT").AsText()), height);
        const std::string color = desktop.tables.lineIndex->Value(1, "ROW_FG").AsText();
        QCOMPARE(color == "5", focus == QStringLiteral("As the view"));
    }

    /// A row without a colour of its own is seen on the view's ground, and its swatch has it.
    void previewAndSwatchesHaveTheViewsColours() {
        QtDesktop desktop;
        desktop.context.shared.settings.backgroundColor = 11;  // light green
        desktop.selectRow("ROW2");
        whenShown<QDialog>([](QDialog* dialog) {
            const QColor green(0, 255, 0);
            ColorButton* ground = colorButton(*dialog, QStringLiteral("Background color"));
            QCOMPARE(ground->text(), QStringLiteral("As the view"));
            const QImage swatch = ground->icon().pixmap(28, 16).toImage();
            QCOMPARE(swatch.pixelColor(swatch.width() / 2, swatch.height() / 2), green);
            auto* preview = dialog->findChild<GridView*>();
            const QRect cell = preview->cellRect(preview->grid().FindCell({"COL1", "ROW1"}).value());
            const QImage picture = preview->viewport()->grab().toImage();
            const qreal ratio = picture.devicePixelRatio();
            QCOMPARE(picture.pixelColor((QPointF(cell.topLeft() + QPoint(3, 3)) * ratio).toPoint()), green);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        desktop.context.grid.rowAttributes.Run();
    }

    void aRowIsPreviewedWhileItIsChanged() {
        QtDesktop desktop;
        desktop.selectRow("ROW1");
        desktop.chosenColor = 9;  // light blue
        whenShown<QDialog>([](QDialog* dialog) {
            const GridControl& preview = dialog->findChild<GridView*>()->grid();
            const Cell cell = preview.FindCell({"COL1", "ROW1"}).value();
            QCOMPARE(preview.Contents(cell), std::string("-1234,5"));
            QCOMPARE(preview.DisplayText(cell), std::string("-1.234,5"));
            colorButton(*dialog, QStringLiteral("Foreground color"))->click();
            button<QCheckBox>(*dialog, QStringLiteral("Relief"))->click();
            button<QRadioButton>(*dialog, QStringLiteral("Center"))->click();
            button<QRadioButton>(*dialog, QStringLiteral("Bold"))->click();
            auto* fonts = dialog->findChildren<QComboBox*>()[0];
            fonts->setCurrentIndex(fonts->findText(QStringLiteral("Courier New")));
            const CellLook look = preview.Look(cell);
            QCOMPARE(preview.Colors()[static_cast<std::size_t>(look.foreground)].name, std::string("tovLightBlue"));
            QVERIFY(look.relief && look.font && look.font->bold);
            QCOMPARE(look.font->name, std::string("Courier New"));
            QCOMPARE(look.alignment, GridAlignment::Center);
            auto* height = dialog->findChild<QLineEdit*>();
            QCOMPARE(height->text(), QStringLiteral("26"));
            height->setText(QStringLiteral("40"));
            QCOMPARE(preview.Row(cell.row).height, std::int16_t{40});
            height->setFocus();
            QTest::keyClick(height, Qt::Key_Return);
        });
        desktop.context.grid.rowAttributes.Run();
        const auto text = [&](const char* field) { return desktop.tables.lineIndex->Value(1, field).AsText(); };
        QCOMPARE(text("ROW_FONT"), std::string("Courier New;;Bold"));
        QCOMPARE(text("ROW_FG"), std::string("10"));
        QCOMPARE(text("ROW_BG"), std::string("15"));
        QCOMPARE(text("ROW_HEIGHT"), std::string("40"));
        QCOMPARE(text("RELIEF"), std::string("X"));
    }

    void aHeightThatMakesNoSenseIsSaid() {
        QtDesktop desktop;
        desktop.selectRow("ROW1");
        whenShown<QDialog>([&desktop](QDialog* dialog) {
            auto* height = dialog->findChild<QLineEdit*>();
            auto* message = dialog->findChild<QLabel*>(QStringLiteral("message"));
            QVERIFY(!message->isVisible());
            height->setText(QStringLiteral("5000"));
            QVERIFY(message->isVisible());
            auto* fonts = dialog->findChildren<QComboBox*>()[0];
            fonts->setCurrentIndex(fonts->findText(QStringLiteral("Lucida")));
            QCoreApplication::processEvents();
            QCOMPARE(cutTexts(*dialog), QStringList());
            savePicture(*dialog, QStringLiteral("row-properties-message"));
            QTest::keyClick(dialog, Qt::Key_Return);
            QVERIFY2(dialog->isVisible(), "the dialog waits for another height");
            QCOMPARE(desktop.messages.size(), std::size_t{1});
            button<QPushButton>(*dialog, QStringLiteral("Reset"))->click();
            QCOMPARE(height->text(), QStringLiteral("22"));
            QVERIFY(!message->isVisible());
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        desktop.context.grid.rowAttributes.Run();
        QCOMPARE(desktop.tables.lineIndex->Value(1, "ROW_HEIGHT").AsText(), std::string("22"));
    }

    void everythingIsReachedAndReadable_data() {
        QTest::addColumn<bool>("row");
        QTest::addColumn<bool>("dark");
        QTest::newRow("grid, light") << false << false;
        QTest::newRow("grid, dark") << false << true;
        QTest::newRow("row, light") << true << false;
        QTest::newRow("row, dark") << true << true;
    }
    void everythingIsReachedAndReadable() {
        QFETCH(bool, row);
        QFETCH(bool, dark);
        QtDesktop desktop;
        desktop.forms->setTheme(dark ? GridTheme::darkTheme() : GridTheme::light());
        desktop.selectRow("ROW1");
        whenShown<QDialog>([row, dark](QDialog* dialog) {
            savePicture(*dialog, (row ? "row-properties" : "grid-options") + name(dark));
            QCOMPARE(cutTexts(*dialog), QStringList());
            const QString letters = mnemonics(*dialog);
            QVERIFY2(std::adjacent_find(letters.begin(), letters.end()) == letters.end(), qPrintable(letters));
            QCOMPARE(letters.size(), row ? 14 : 8);
            for (const QWidget* each : dialog->findChildren<ColorButton*>()) {
                QVERIFY(each->accessibleName().contains(QStringLiteral("color: ")));
            }
            QCOMPARE(tabOrder(*dialog).join(QLatin1String(", ")), row ? RowTabOrder : GridTabOrder);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        row ? desktop.context.grid.rowAttributes.Run() : desktop.context.grid.generalOptions.Run();
    }

    void theControlMayGoWhileADialogIsOpen_data() {
        QTest::addColumn<bool>("whole");
        QTest::newRow("its widget alone") << false;
        QTest::newRow("with its window") << true;
    }
    void theControlMayGoWhileADialogIsOpen() {
        QFETCH(bool, whole);
        QPointer<QWidget> window(new QWidget);
        QtDesktop desktop;
        QWidget* control = desktop.widget.get();
        control->setParent(window);
        static_cast<void>(desktop.widget.release());  // its parent's now
        whenShown<QDialog>([whole, window, control](QDialog* dialog) {
            button<QCheckBox>(*dialog, QStringLiteral("Allow move of columns and rows"))->click();
            delete (whole ? window.data() : control);
        });
        desktop.context.grid.generalOptions.Run();
        QCOMPARE(desktop.context.shared.settings.moveAllowed, std::int16_t{1});
        delete window;
    }

    void theControlMayGoWhileAColourIsChosen() {
        QtDesktop desktop;
        desktop.context.shared.chooseColor = [&desktop](const ColorQuestion&) {
            desktop.widget.reset();
            return std::optional(3);
        };
        whenShown<QDialog>([](QDialog* dialog) { colorButton(*dialog, QStringLiteral("Background color"))->click(); });
        desktop.context.grid.generalOptions.Run();
        QCOMPARE(desktop.context.shared.settings.backgroundColor, std::int16_t{0});
    }
};

}  // namespace planview

QTEST_MAIN(planview::DialogsTest)
#include "DialogsTest.moc"
