// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <cstdint>
#include <functional>
#include <string_view>

#include "book/Book.h"
#include "book/BookChanges.h"
#include "book/HostCommands.h"
#include "book/PlanEdits.h"

namespace planview {
class PlanViewWidget;
}

namespace planbook {

class BookSession;
class Questions;

/// planbook's own entries in the view's popups: offers those of the book's menu tables, enabled when they can be done
/// now, and does what the user chooses.
class HostMenus : public QObject {
    Q_OBJECT

public:
    HostMenus(planview::PlanViewWidget& view, BookSession& session, Questions& questions, QObject* parent = nullptr);

Q_SIGNALS:
    void reloadWanted();

private:
    /// Gives the view its tables anew.
    void offer();
    [[nodiscard]] bool canDo(HostCommand command) const;
    void run(HostCommand command, CellPosition place);
    /// Has the view change the values; tells the user when no cell has changed.
    void change(std::string_view name, const PlanEdits& edits, const QString& nothingChanged);
    void copyLine(std::int32_t line);
    void copyPeriod(std::int32_t period);
    void spreadTotal(std::int32_t line);
    /// Of what is selected; the popup has selected what was clicked.
    void raise();
    void clear(const std::function<bool(CellPosition)>& which);

    planview::PlanViewWidget& view_;
    BookSession& session_;
    Questions& questions_;
};

}  // namespace planbook
