#pragma once

#include <QDialog>

#include "components/ListView.h"

class QTreeWidget;

namespace planview {

/// Shows the trace as it was when the window came up: one line per entry, the newest in sight.
class TraceDialog final : public QDialog {
    Q_OBJECT

public:
    explicit TraceDialog(const ListView& entries, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    const ListView& entries_;
    QTreeWidget* list_;
};

}  // namespace planview
