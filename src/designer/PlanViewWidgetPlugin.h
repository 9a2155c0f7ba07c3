// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace planview {

/// Offers PlanViewWidget to Qt Designer. In a form that is being designed the widget shows a few sample lines; they are
/// not saved with the form.
class PlanViewWidgetPlugin final : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetInterface")
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    [[nodiscard]] QString name() const override;
    [[nodiscard]] QString group() const override;
    [[nodiscard]] QString toolTip() const override;
    [[nodiscard]] QString whatsThis() const override;
    [[nodiscard]] QString includeFile() const override;
    [[nodiscard]] QIcon icon() const override;
    [[nodiscard]] bool isContainer() const override;
    [[nodiscard]] QWidget* createWidget(QWidget* parent) override;
    [[nodiscard]] bool isInitialized() const override;
    void initialize(QDesignerFormEditorInterface* core) override;
    [[nodiscard]] QString domXml() const override;

private:
    bool inDesigner_ = false;
};

}  // namespace planview
