// SPDX-License-Identifier: MIT
#include <QAbstractItemModelTester>
#include <QAction>
#include <QActionGroup>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDateTime>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSysInfo>
#include <QTreeView>
#include <QWindow>
#include <QtTest>
#include <chrono>
#include <thread>

#include "qt/WhenShown.h"
#include "qt/dialogs/TraceDialog.h"
#include "qt/platform/QtForms.h"
#include "support/ScriptedPlatform.h"
#include "trace/modPlan.h"

namespace planview {

namespace {

/// A platform whose forms are real windows.
class QtDesktop : public test::ScriptedPlatform {
public:
    QtDesktop() : forms(std::make_unique<QtForms>(widget)) {}
    void Load(Form& form) override { forms->Load(form); }
    void ShowModal(Form& form) override { forms->ShowModal(form); }
    void Hide(Form& form) override { forms->Hide(form); }
    void Unload(Form& form) override { forms->Unload(form); }

    QWidget widget;
    std::unique_ptr<QtForms> forms;
};

void write(const char* control, const char* method, const char* parameter, int times = 1) {
    for (int i = 0; i < times; ++i) {
        modPlan::TraceWrite(control, "", method, parameter);
    }
}

QTreeView& listOf(QWidget& dialog) {
    return *dialog.findChild<QTreeView*>();
}

/// The controls of the entries that are shown.
QStringList shown(QWidget& dialog) {
    QStringList controls;
    const QAbstractItemModel& model = *listOf(dialog).model();
    for (int row = 0; row < model.rowCount(); ++row) {
        controls << model.index(row, 0).data().toString();
    }
    return controls;
}

bool newestIsMarkedAndVisible(QWidget& dialog) {
    const QTreeView& list = listOf(dialog);
    const QModelIndex last = list.model()->index(list.model()->rowCount() - 1, 0);
    return list.currentIndex().row() == last.row() && list.selectionModel()->isRowSelected(last.row()) &&
           list.viewport()->rect().intersects(list.visualRect(last));
}

QAction* action(QWidget& dialog, const QString& text) {
    for (QAction* candidate : dialog.findChildren<QAction*>()) {
        if (candidate->text().remove(QLatin1Char('&')) == text) {
            return candidate;
        }
    }
    return nullptr;
}

}  // namespace

/// The trace window as a real window.
class TraceDialogTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 10)); }
    void init() {
        desktop_ = std::make_unique<QtDesktop>();
        modPlan::Trace_Enable(desktop_->Interfaces());
        frmTrace::Share()->TraceView.Clear();
    }
    void cleanup() {
        if (modPlan::TraceEnabled) {
            modPlan::Trace_Disable(desktop_->Interfaces());
        }
        desktop_.reset();
    }

    void columnsHaveTheirCaptionsAndWidths() {
        show([](QDialog* dialog) {
            QCOMPARE(dialog->windowTitle(), QStringLiteral("Trace [Morvida]"));
            const QTreeView& list = listOf(*dialog);
            const int inch = dialog->logicalDpiX();
            const struct {
                const char* caption;
                int twips;
            } columns[] = {{"Control", 1500}, {"Message", 1500}, {"Methode/Event", 2100}, {"Parameter", 4500}};
            for (int i = 0; i < 4; ++i) {
                QCOMPARE(list.model()->headerData(i, Qt::Horizontal).toString(), QString(columns[i].caption));
                QCOMPARE(list.columnWidth(i), qRound(columns[i].twips * inch / 1440.0));
            }
            QCOMPARE(list.model()->headerData(4, Qt::Horizontal).toString(), QStringLiteral("GUID"));
        });
    }

    void entriesAppearAtOnceAndTheNewestIsMarked() {
        write("GRIDCTL", "Redraw", "{}", 3);
        show([](QDialog* dialog) {
            QVERIFY(newestIsMarkedAndVisible(*dialog));
            write("CHART", "Update", "{}", 200);
            QCoreApplication::processEvents();
            QCOMPARE(shown(*dialog).size(), 203);
            QVERIFY(newestIsMarkedAndVisible(*dialog));
            listOf(*dialog).setCurrentIndex(listOf(*dialog).model()->index(5, 0));
            write("CHART", "Update", "{}");
            QCoreApplication::processEvents();
            QCOMPARE(listOf(*dialog).currentIndex().row(), 5);
            action(*dialog, QStringLiteral("Insert bookmark"))->trigger();
            QCoreApplication::processEvents();
            QVERIFY2(newestIsMarkedAndVisible(*dialog), "what the window's own menu writes is shown");
            QCOMPARE(listOf(*dialog).selectionModel()->selectedRows().size(), 1);
            QCOMPARE(shown(*dialog).last(), QStringLiteral("TRACE WINDOW"));
        });
    }

    void aFullListMovesOnInFewSteps() {
        const QAbstractItemModelTester::FailureReportingMode Strict =
            QAbstractItemModelTester::FailureReportingMode::QtTest;
        write("GRIDCTL", "Redraw", "{}", 5000);
        show([Strict](QDialog* dialog) {
            QAbstractItemModel* model = listOf(*dialog).model();
            QSignalSpy removed(model, &QAbstractItemModel::rowsRemoved);
            QSignalSpy inserted(model, &QAbstractItemModel::rowsInserted);
            write("CHART", "Update", "{}", 1000);
            QCoreApplication::processEvents();
            QCOMPARE(model->rowCount(), 5000);
            QCOMPARE(shown(*dialog)[3999], QStringLiteral("GRIDCTL"));
            QCOMPARE(shown(*dialog)[4000], QStringLiteral("CHART"));
            QCOMPARE(removed.count(), 1);
            QCOMPARE(inserted.count(), 1);
            QVERIFY(newestIsMarkedAndVisible(*dialog));
            const QAbstractItemModelTester tester(model, Strict);
            write("CHART", "Update", "{}", 12000);
            QCoreApplication::processEvents();
            QCOMPARE(model->rowCount(), 5000);
            QVERIFY(newestIsMarkedAndVisible(*dialog));
        });
    }

    /// What is read stays where it is while entries come, in a full list too, until its turn to go comes.
    void whoScrollsUpReadsOn() {
        write("GRIDCTL", "Redraw", "{}", 4000);
        show([](QDialog* dialog) {
            QTreeView& list = listOf(*dialog);
            auto* follow = dialog->findChild<QCheckBox*>();
            QVERIFY(follow->isChecked());
            list.verticalScrollBar()->setValue(2000);
            QVERIFY(!follow->isChecked());
            const auto top = [&] { return list.indexAt(QPoint(0, 0)).siblingAtColumn(4).data().toString(); };
            const QString read = top();
            for (const int more : {500, 1000, 700}) {  // the list holds 5000
                write("CHART", "Update", "{}", more);
                QCoreApplication::processEvents();
                QCOMPARE(top(), read);
            }
            write("CHART", "Update", "{}", 1500);
            QCoreApplication::processEvents();
            QCOMPARE(list.indexAt(QPoint(0, 0)).row(), 0);  // it is gone
            QVERIFY(!follow->isChecked());
            QTest::mouseClick(follow, Qt::LeftButton, Qt::NoModifier, QPoint(8, follow->height() / 2));
            QVERIFY(newestIsMarkedAndVisible(*dialog));
            write("CHART", "Update", "{}", 10);
            QCoreApplication::processEvents();
            QVERIFY(newestIsMarkedAndVisible(*dialog) && follow->isChecked());
            QTest::keyClick(&list, Qt::Key_Home);
            QVERIFY(!follow->isChecked());
            QTest::keyClick(&list, Qt::Key_End);
            QVERIFY2(follow->isChecked(), "who goes to the end follows again");
        });
    }

    void timesAndLabelsAreReadable() {
        frmTrace::Share()->TraceView.Add(10, [](ListItem& item) {
            item = {"TRACE{1}", "DATAPROVIDER", {}, std::chrono::system_clock::time_point()};
            item.time +=
                std::chrono::milliseconds(QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7, 89)).toMSecsSinceEpoch());
        });
        show([](QDialog* dialog) {
            const QTreeView& list = listOf(*dialog);
            QCOMPARE(list.header()->logicalIndex(0), 5);
            QCOMPARE(list.model()->headerData(5, Qt::Horizontal).toString(), QStringLiteral("Time"));
            QCOMPARE(list.model()->index(0, 5).data().toString(), QStringLiteral("05:06:07.089"));
            QVERIFY(list.columnWidth(5) >= list.fontMetrics().horizontalAdvance(QStringLiteral("05:06:07.089")) + 8);
            QVERIFY(list.columnWidth(0) >= list.fontMetrics().horizontalAdvance(QStringLiteral("DATAPROVIDER")) + 8);
        });
    }

    /// The entries' figures end at 2 GB.
    void trueFiguresStandBelowTheList() {
        constexpr std::int64_t Gigabyte = 1024LL * 1024 * 1024;
        desktop_->memory = {16 * Gigabyte, 20 * Gigabyte, 12 * Gigabyte};
        show([this](QDialog* dialog) {
            const auto text = [&] {
                QString all;
                for (const QLabel* label : dialog->findChildren<QLabel*>()) {
                    all += label->text();
                }
                return all;
            };
            const QString sixteen = QLocale().formattedDataSize(16 * Gigabyte, 1);
            QVERIFY2(text().contains(sixteen) && text().contains(QSysInfo::kernelVersion()), qPrintable(text()));
            desktop_->memory.reset();
            action(*dialog, QStringLiteral("Memory check"))->trigger();
            QVERIFY2(!text().contains(sixteen), "the check takes them anew");
        });
    }

    void wordsFilterTheEntries_data() {
        QTest::addColumn<QString>("words");
        QTest::addColumn<int>("where");
        QTest::addColumn<QStringList>("controls");
        QTest::newRow("none") << "" << 0 << QStringList{"GRIDCTL", "CHART", "POPUP"};
        QTest::newRow("control") << "grid" << 2 << QStringList{"GRIDCTL"};
        QTest::newRow("message") << "work" << 3 << QStringList{"CHART"};
        QTest::newRow("method") << "upd" << 4 << QStringList{"CHART", "POPUP"};
        QTest::newRow("parameter") << "grid" << 5 << QStringList{"POPUP"};
        QTest::newRow("key") << "trace{" << 6 << QStringList{"GRIDCTL", "CHART", "POPUP"};
        QTest::newRow("time") << "{" << 1 << QStringList();
        QTest::newRow("anywhere") << "grid" << 0 << QStringList{"GRIDCTL", "POPUP"};
        QTest::newRow("all of the words") << "  update menu " << 0 << QStringList{"POPUP"};
        QTest::newRow("no entry") << "nothing" << 0 << QStringList();
    }
    void wordsFilterTheEntries() {
        QFETCH(QString, words);
        QFETCH(int, where);
        QFETCH(QStringList, controls);
        write("GRIDCTL", "Redraw", "{}");
        modPlan::TraceWrite("CHART", "WORK", "Update", "{}");
        write("POPUP", "Update", "{menu: GRID}");
        show([&](QDialog* dialog) {
            dialog->findChild<QComboBox*>()->setCurrentIndex(where);
            dialog->findChild<QLineEdit*>()->setText(words);
            QCOMPARE(shown(*dialog), controls);
            write("GRIDCTL", "nothing", "{}");
            QCoreApplication::processEvents();
            const bool more = words.isEmpty() || words == "nothing" || words == "trace{" ||
                              (words == "grid" && (where == 0 || where == 2));
            QCOMPARE(shown(*dialog).size(), controls.size() + (more ? 1 : 0));
            if (!words.isEmpty()) {
                QTest::keyClick(dialog->findChild<QLineEdit*>(), Qt::Key_Escape);
                QVERIFY2(dialog->isVisible(), "Escape takes the filter away first");
                QCOMPARE(shown(*dialog).size(), 4);
            }
        });
    }

    void selectedEntriesAreCopied() {
        write("GRIDCTL", "Redraw", "{a: 1}");
        write("CHART", "Update", "{}");
        write("POPUP", "Update", "{}");
        const std::string first = frmTrace::Share()->TraceView.Item(0).key;
        const std::string last = frmTrace::Share()->TraceView.Item(2).key;
        show([&](QDialog* dialog) {
            QTreeView& list = listOf(*dialog);
            const auto select = [&](int row) {
                list.selectionModel()->select(list.model()->index(row, 0),
                                              QItemSelectionModel::Select | QItemSelectionModel::Rows);
            };
            select(0);  // after the newest: the order of the list counts
            action(*dialog, QStringLiteral("Copy entries"))->trigger();
            QString text = QGuiApplication::clipboard()->text();
            text.remove(QRegularExpression(QStringLiteral("^[0-9:.]{12}\\t"), QRegularExpression::MultilineOption));
            QCOMPARE(text.toStdString(),
                     "GRIDCTL\t\tRedraw\t{a: 1}\t" + first + "\nPOPUP\t\tUpdate\t{}\t" + last + "\n");
        });
    }

    void theMenuActsOnTheList() {
        write("GRIDCTL", "Redraw", "{}", 3);
        show([this](QDialog* dialog) {
            QAction* onTop = action(*dialog, QStringLiteral("Window always on top"));
            QVERIFY(onTop->actionGroup()->isExclusive());  // shown as a bullet
            for (const bool on : {true, false}) {
                onTop->trigger();
                QCOMPARE(onTop->isChecked(), on);
                QCOMPARE(dialog->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint), on);
                QVERIFY2(dialog->isVisible(), "and the window is still waited for");
            }
            action(*dialog, QStringLiteral("Delete all items"))->trigger();
            QCoreApplication::processEvents();
            QCOMPARE(desktop_->messages.size(), std::size_t{1});
            QCOMPARE(shown(*dialog), QStringList{"TRACE WINDOW"});
            action(*dialog, QStringLiteral("Memory check"))->trigger();
            QCoreApplication::processEvents();
            QCOMPARE(shown(*dialog).size(), 4);
            action(*dialog, QStringLiteral("Exit"))->trigger();
            QVERIFY(!dialog->isVisible());
        });
        QVERIFY(frmTrace::Find());
        QCOMPARE(frmTrace::Share()->TraceView.Count(), std::size_t{4});
    }

    void showingItTwiceShowsOneWindow() {
        int shownOnce = 0;
        show([&](QDialog* dialog) {
            ++shownOnce;
            modPlan::Trace_Show(desktop_->Interfaces());  // returns at once
            QVERIFY(dialog->isVisible());
            action(*dialog, QStringLiteral("Memory check"))->trigger();
            QCOMPARE(frmTrace::Share()->TraceView.Count(), std::size_t{3});
        });
        QCOMPARE(shownOnce, 1);
    }

    void theListFillsTheWindow() {
        show([](QDialog* dialog) {
            QTreeView& list = listOf(*dialog);
            const int menu = dialog->findChild<QMenuBar*>()->height();
            for (const QSize size : {QSize(900, 500), QSize(400, 300), QSize(1200, 700)}) {
                dialog->resize(size);
                QCoreApplication::processEvents();
                const QWidget* line = dialog->findChild<QLineEdit*>()->parentWidget();
                QVERIFY(list.y() >= menu && list.y() <= menu + 4);
                QVERIFY(list.x() <= 4 && list.x() + list.width() >= size.width() - 4);
                QVERIFY(list.geometry().bottom() <= line->y() && list.geometry().bottom() >= line->y() - 4);
            }
        });
    }

    void theTraceMayEndWhileTheWindowIsShown() {
        write("GRIDCTL", "Redraw", "{}", 3);
        bool shownAgain = false;
        whenShown<QDialog>([](QDialog*) {
            test::ScriptedPlatform another;
            modPlan::Trace_Disable(another.Interfaces());
        });
        modPlan::Trace_Show(desktop_->Interfaces());
        QVERIFY(!frmTrace::Find());
        modPlan::Trace_Enable(desktop_->Interfaces());
        show([&shownAgain](QDialog*) { shownAgain = true; });
        QVERIFY(shownAgain);
    }

    void anotherThreadWritesAndEndsTheTrace() {
        whenShown<QDialog>([](QDialog* dialog) {
            std::thread([] { write("CHART", "Update", "{}", 3); }).join();
            QCoreApplication::processEvents();
            QCOMPARE(shown(*dialog).size(), 3);
            std::thread([] {
                test::ScriptedPlatform another;
                modPlan::Trace_Disable(another.Interfaces());
            }).join();
            QVERIFY2(dialog->isVisible(), "that thread leaves the window alone");
        });
        modPlan::Trace_Show(desktop_->Interfaces());  // until the window has ended itself
        QVERIFY(!frmTrace::Find());
        modPlan::Trace_Leave(desktop_->Interfaces());
    }

    void pictures_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void pictures() {
        QFETCH(bool, dark);
        const GridTheme& theme = dark ? GridTheme::darkTheme() : GridTheme::light();
        desktop_->forms->setTheme(theme);
        modPlan::MemoryCheck(*desktop_);
        write("GRIDCTL", "CenterBgColor", "{cid:  - rid: ROW3 - color:8 - redraw:False}", 12);
        modPlan::TraceWrite("==>", "Unknown row", "ERROR", "{cid: COL3 - rid: ROW9}");
        show([&](QDialog* dialog) {
            action(*dialog, QStringLiteral("Insert bookmark"))->trigger();
            QCoreApplication::processEvents();
            QCOMPARE(dialog->palette().color(QPalette::Window), QColor(theme.panel));
            const QTreeView& list = listOf(*dialog);
            const QRect current = list.visualRect(list.currentIndex().siblingAtColumn(0));
            const QImage row = list.viewport()->grab(current).toImage();
            QColor strongest = theme.accentTint;
            for (int x = 4; x < row.width() - 4; ++x) {
                for (int y = 3; y < row.height() - 3; ++y) {
                    const QColor color = row.pixelColor(x, y);
                    const bool more =
                        contrastRatio(color.rgb(), theme.accentTint) > contrastRatio(strongest.rgb(), theme.accentTint);
                    strongest = more ? color : strongest;
                }
            }
            QCOMPARE(row.pixelColor(2, 2), QColor(theme.accentTint));
            QVERIFY2(contrastRatio(strongest.rgb(), theme.accentTint) >= 4.5, "no veil over the selected row");
            savePicture(*dialog, dark ? QStringLiteral("trace-dark") : QStringLiteral("trace-light"));
        });
    }

    /// Two controls have a window each for the one trace: neither freezes the other's, nor outlives what it shows.
    void windowsOfTwoControlsShowOneTrace() {
        const auto other = std::make_unique<QtDesktop>();
        int first = 0;
        int second = 0;
        const auto countIn = [](QtDesktop& desktop, int& count, bool onTop) {
            whenShown<QDialog>([&count, onTop](QDialog* dialog) {
                write("GRIDCTL", "Entry", "{}");
                count = listOf(*dialog).model()->rowCount();
                QCOMPARE(dialog->windowFlags().testFlag(Qt::WindowStaysOnTopHint), onTop);
                action(*dialog, QStringLiteral("Window always on top"))->trigger();
                QCOMPARE(dialog->windowFlags().testFlag(Qt::WindowStaysOnTopHint), !onTop);
                dialog->close();
            });
            modPlan::Trace_Show(desktop.Interfaces());
        };
        countIn(*desktop_, first, false);
        other->Load(*frmTrace::Share());
        countIn(*other, second, true);
        QVERIFY(second > first);
        const int before = second;
        countIn(*desktop_, first, false);
        QVERIFY2(first > before, "the first window goes on although another one was opened");
        desktop_->answer = MessageAnswer::No;
        modPlan::Trace_Disable(desktop_->Interfaces());
    }

private:
    template <class Action>
    void show(Action act) {
        whenShown<QDialog>([act](QDialog* dialog) {
            act(dialog);
            dialog->close();
        });
        modPlan::Trace_Show(desktop_->Interfaces());
    }

    std::unique_ptr<QtDesktop> desktop_;
};

}  // namespace planview

QTEST_MAIN(planview::TraceDialogTest)
#include "TraceDialogTest.moc"
