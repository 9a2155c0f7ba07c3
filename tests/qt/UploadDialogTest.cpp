// SPDX-License-Identifier: MIT
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeView>
#include <QtTest>
#include <memory>

#include "dialogs/frmUpload.h"
#include "qt/WhenShown.h"
#include "qt/dialogs/UploadModel.h"
#include "qt/platform/QtForms.h"

namespace planview {

namespace {

UploadPreview samplePreview() {
    UploadPreview preview;
    preview.file = "/plans/us & employment.xlsx";
    preview.sheet = "Tabelle1";
    const auto add = [&](const char* line, const char* period, const char* before, const char* after,
                         const char* refusal = "") {
        UploadChange change;
        change.line = line;
        change.period = period;
        change.before = before;
        change.after = after;
        change.refusal = refusal;
        preview.changes.push_back(change);
    };
    add("Total nonfarm", "Jan 06", "135450", "1", "This cell is read-only.");
    add("  Construction", "Feb 06", "7664", "7300,25");
    add("  Construction", "Mar 06", "7689", "1234,5");
    add("  Manufacturing", "Apr 06", "14226", "");
    add("  Durable goods", "Jan 06", "8982", "abc",
        "This is not a number. Enter digits with a point or a comma, or nothing.");
    add("  Wholesale trade", "May 06", "", "5840,4");
    preview.notes = {"The line \"Utilities\" is not in the workbook and stays as it is.",
                     "Row 25, \"Margin\", belongs to no line of the table and is not read."};
    return preview;
}

template <class Widget>
Widget& only(QDialog& dialog) {
    const QList<Widget*> all = dialog.findChildren<Widget*>();
    Q_ASSERT(!all.isEmpty());
    return *all.first();
}

QPushButton& button(QDialog& dialog, const QString& start) {
    for (QPushButton* each : dialog.findChildren<QPushButton*>()) {
        if (each->text().remove(QLatin1Char('&')).startsWith(start)) {
            return *each;
        }
    }
    qFatal("there is no button %s", qPrintable(start));
}

QStringList column(QTreeView& list, int which) {
    QStringList texts;
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        texts << list.model()->index(row, which).data().toString();
    }
    return texts;
}

}  // namespace

class UploadDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        widget_ = std::make_unique<QWidget>();
        forms_ = std::make_unique<QtForms>(*widget_);
        preview_ = samplePreview();
    }

    void showsWhatWouldChangeAndWhy() {
        const bool applied = show([&](QDialog& dialog) {
            auto& list = only<QTreeView>(dialog);
            QCOMPARE(column(list, UploadModel::Line),
                     (QStringList{"Total nonfarm", "Construction", "Construction", "Manufacturing", "Durable goods",
                                  "Wholesale trade"}));
            QCOMPARE(column(list, UploadModel::After),
                     (QStringList{"1", "7300,25", "1234,5", "(empty)", "abc", "5840,4"}));
            const QAbstractItemModel& model = *list.model();
            QVERIFY2(!model.index(0, 0).data(Qt::CheckStateRole).isValid(), "a refused one has no tick box");
            QCOMPARE(model.index(0, UploadModel::Remark).data().toString(), QString("This cell is read-only."));
            QVERIFY2(model.index(0, 1).data(Qt::ForegroundRole) != model.index(1, 1).data(Qt::ForegroundRole),
                     "greyed");
            QVERIFY(only<QPlainTextEdit>(dialog).toPlainText().contains("Utilities"));
            QVERIFY(button(dialog, "Apply 4 changes").isEnabled());
        });
        QVERIFY2(!applied, "closed by the frame");
    }

    void numbersHaveTheFormatOfTheirLine() {
        for (UploadChange& change : preview_.changes) {
            change.format = "#,##0";
        }
        preview_.changes[2].before = "1234,75";
        preview_.changes[1].origin = UploadOrigin::Both;
        preview_.changes[1].downloaded = "7000";
        show([&](QDialog& dialog) {
            auto& list = only<QTreeView>(dialog);
            QCOMPARE(column(list, UploadModel::Before),
                     (QStringList{"135.450", "7.664", "1234,75", "14.226", "8.982", "(empty)"}));
            QCOMPARE(column(list, UploadModel::After),
                     (QStringList{"1", "7.300", "1234,5", "(empty)", "abc", "5.840"}));
            QVERIFY(column(list, UploadModel::Remark)[1].contains("It was 7.000"));
            QCOMPARE(list.model()->index(1, UploadModel::After).data(Qt::ToolTipRole).toString(), QString("7300,25"));
            for (const char* words : {"7.300", "7300"}) {
                only<QLineEdit>(dialog).setText(words);
                QCOMPARE(list.model()->rowCount(), 1);
            }
        });
    }

    void ticksDecideWhatIsApplied() {
        const bool applied = show([&](QDialog& dialog) {
            auto& list = only<QTreeView>(dialog);
            const QModelIndex construction = list.model()->index(1, UploadModel::Line);
            list.setCurrentIndex(construction.siblingAtColumn(UploadModel::After));
            QTest::keyClick(&list, Qt::Key_Space);
            QVERIFY(button(dialog, "Apply 3 changes").isEnabled());
            button(dialog, "Untick shown").click();
            QVERIFY2(!button(dialog, "Apply 0 changes").isEnabled(), "there is nothing to apply");
            only<QLineEdit>(dialog).setText("mar 06");
            button(dialog, "Tick shown").click();
            only<QLineEdit>(dialog).clear();
            QTest::mouseClick(&button(dialog, "Apply 1 change"), Qt::LeftButton);
        });
        QVERIFY(applied);
        QList<bool> taken;
        for (const UploadChange& change : preview_.changes) {
            taken << change.taken;
        }
        QCOMPARE(taken, (QList<bool>{false, false, true, false, false, false}));
    }

    void aMacrosChangesAreShownAsItsOwn() {
        whenShown<QDialog>([](QDialog* dialog) {
            QCOMPARE(dialog->windowTitle(), QString("What the macro changes"));
            QCOMPARE(only<QComboBox>(*dialog).count(), 3);
            const QModelIndex changed = only<QTreeView>(*dialog).model()->index(1, UploadModel::Remark);
            QCOMPARE(changed.data(Qt::AccessibleTextRole).toString(), QString("changed by the macro"));
            savePicture(*dialog, QStringLiteral("dialog-macro-preview"));
            button(*dialog, "Apply").click();
        });
        QVERIFY(ConfirmMacro(*forms_, preview_, "Plan / 2"));
    }

    void theSpaceBarTicksAllThatAreSelected() {
        show([&](QDialog& dialog) {
            auto& list = only<QTreeView>(dialog);
            list.selectAll();
            QTest::keyClick(&list, Qt::Key_Space);
            QVERIFY2(!button(dialog, "Apply 0 changes").isEnabled(), "a refused one above them does not count");
            list.setCurrentIndex(list.model()->index(1, UploadModel::Line));
            QTest::keyClick(&list, Qt::Key_Space);
            list.selectAll();
            QTest::keyClick(&list, Qt::Key_Space);
            QVERIFY(button(dialog, "Apply 4 changes").isEnabled());
        });
    }

    void longNamesAndNotesFitTheWindow() {
        preview_.file = "/plans/" + std::string(250, 'x') + ".xlsx";
        preview_.notes.assign(2, std::string(400, 'y') + std::string(20, ' ') + std::string(100, 'z'));
        show([&](QDialog& dialog) {
            QVERIFY(dialog.minimumSizeHint().width() < 900);
            const auto& notes = only<QPlainTextEdit>(dialog);
            QVERIFY(notes.height() >= 4 * notes.fontMetrics().lineSpacing());
        });
    }

    void theFilterFindsWordsAndKinds() {
        show([&](QDialog& dialog) {
            auto& list = only<QTreeView>(dialog);
            auto& words = only<QLineEdit>(dialog);
            auto& kinds = only<QComboBox>(dialog);
            words.setText("constr 7300");
            QCOMPARE(list.model()->rowCount(), 1);
            words.setText("read-only");
            QCOMPARE(column(list, UploadModel::Line), QStringList{"Total nonfarm"});
            QTest::keyClick(&words, Qt::Key_Escape);
            QVERIFY2(dialog.isVisible() && words.text().isEmpty(), "Escape takes the filter away first");
            kinds.setCurrentIndex(2);
            QCOMPARE(list.model()->rowCount(), 2);
            kinds.setCurrentIndex(1);
            QCOMPARE(list.model()->rowCount(), 4);
        });
    }

    void whatTheTableChangedStandsApart() {
        preview_.changes[1].origin = UploadOrigin::Both;
        preview_.changes[1].downloaded = "7000";
        preview_.changes[2].origin = UploadOrigin::Book;
        preview_.changes[1].taken = preview_.changes[2].taken = false;
        preview_.remarks = {"Several lines are called \"Construction\"; they were taken in order."};
        show([&](QDialog& dialog) {
            auto& list = only<QTreeView>(dialog);
            auto& kinds = only<QComboBox>(dialog);
            QVERIFY(button(dialog, "Apply 2 changes").isEnabled());
            QVERIFY(only<QPlainTextEdit>(dialog).toPlainText().contains("taken in order"));
            for (const auto& [kind, after] :
                 {std::pair(1, "(empty)"), std::pair(3, "7300,25"), std::pair(4, "1234,5")}) {
                kinds.setCurrentIndex(kind);
                QCOMPARE(column(list, UploadModel::After).first(), QString(after));
            }
            kinds.setCurrentIndex(3);
            QVERIFY(column(list, UploadModel::Remark).first().contains("It was 7000"));
            button(dialog, "Tick shown").click();
            QVERIFY(button(dialog, "Apply 3 changes").isEnabled());
            kinds.setCurrentIndex(0);
            savePicture(dialog, QStringLiteral("dialog-upload-three-way"));
        });
    }

    void manyChangesAreTickedAtOnce() {
        const UploadChange change = preview_.changes[1];
        preview_.changes.assign(32761, change);
        show([&](QDialog& dialog) {
            button(dialog, "Untick shown").click();
            QVERIFY(!button(dialog, "Apply 0 changes").isEnabled());
            button(dialog, "Tick shown").click();
            QVERIFY(button(dialog, "Apply 32761 changes").isEnabled());
        });
    }

    void endsWithItsControl() {
        const bool applied = show([&](QDialog&) { widget_.reset(); });
        QVERIFY(!applied);
    }

    void pictures_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void pictures() {
        QFETCH(bool, dark);
        const GridTheme& theme = dark ? GridTheme::darkTheme() : GridTheme::light();
        forms_->setTheme(theme);
        show([&](QDialog& dialog) {
            only<QTreeView>(dialog).setCurrentIndex(only<QTreeView>(dialog).model()->index(1, 0));
            QCoreApplication::processEvents();
            QCOMPARE(dialog.palette().color(QPalette::Window), QColor(theme.panel));
            savePicture(dialog, dark ? QStringLiteral("dialog-upload-dark") : QStringLiteral("dialog-upload-light"));
        });
    }

private:
    template <class Action>
    bool show(const Action& act) {
        whenShown<QDialog>([act](QDialog* dialog) {
            const QPointer<QDialog> shown(dialog);
            act(*dialog);
            if (shown) {
                shown->close();
            }
        });
        return ConfirmUpload(*forms_, preview_);
    }

    std::unique_ptr<QWidget> widget_;
    std::unique_ptr<QtForms> forms_;
    UploadPreview preview_;
};

}  // namespace planview

QTEST_MAIN(planview::UploadDialogTest)
#include "UploadDialogTest.moc"
