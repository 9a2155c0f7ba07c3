// SPDX-License-Identifier: MIT
#include <QFile>
#include <QIcon>
#include <QPluginLoader>
#include <QTest>
#include <memory>

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#if WITH_UI_TOOLS
#include <QUiLoader>
#endif

#include <planview/qt/PlanViewWidget.h>

#include "ui_PlanForm.h"

using planview::PlanViewWidget;

class DesignerPluginTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWidgetBoxGetsTheWidget();
    void aFormShowsTheWidget();
    void aFormFileCanBeLoaded();
};

void DesignerPluginTest::theWidgetBoxGetsTheWidget() {
    QPluginLoader loader(DESIGNER_PLUGIN);
    auto* plugin = qobject_cast<QDesignerCustomWidgetInterface*>(loader.instance());
    QVERIFY2(plugin, qPrintable(loader.errorString()));
    QCOMPARE(plugin->name(), "planview::PlanViewWidget");
    QCOMPARE(plugin->includeFile(), "planview/qt/PlanViewWidget.h");
    QVERIFY(!plugin->icon().pixmap(22, 22).isNull());
    QVERIFY(plugin->domXml().contains("class=\"planview::PlanViewWidget\""));

    // The same form before and after Qt Designer has introduced itself: data of the host's own, then sample lines.
    const auto pictureOf = [plugin] {
        const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
        widget->resize(520, 240);
        return widget->grab().toImage();
    };
    const QImage empty = pictureOf();
    plugin->initialize(nullptr);
    QVERIFY(plugin->isInitialized());
    QVERIFY(pictureOf() != empty);
}

void DesignerPluginTest::aFormShowsTheWidget() {
    QWidget window;
    Ui::PlanForm form;
    form.setupUi(&window);
    QCOMPARE(form.planView->colorScheme(), PlanViewWidget::ColorScheme::Dark);
    QCOMPARE(form.planView->textScale(), 1.25);
    window.resize(600, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(form.planView->isVisible());
    QVERIFY(form.planView->height() > 200);
}

void DesignerPluginTest::aFormFileCanBeLoaded() {
#if WITH_UI_TOOLS
    QUiLoader loader;
    loader.clearPluginPaths();
    loader.addPluginPath(QFileInfo(DESIGNER_PLUGIN).path());
    QFile file(FORM_FILE);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const std::unique_ptr<QWidget> window(loader.load(&file));
    QVERIFY2(window, qPrintable(loader.errorString()));
    const auto* view = window->findChild<QWidget*>("planView");
    QVERIFY(view);
    // By name: the plugin may hold a copy of the class of its own.
    QCOMPARE(view->metaObject()->className(), "planview::PlanViewWidget");
    QCOMPARE(view->property("textScale").toDouble(), 1.25);
#else
    QSKIP("Qt was installed without its UiTools.");
#endif
}

QTEST_MAIN(DesignerPluginTest)
#include "DesignerPluginTest.moc"
