// SPDX-License-Identifier: MIT
#pragma once

#include <QListWidget>
#include <QMainWindow>
#include <memory>

#include <planview/MemoryTable.h>
#include <planview/qt/PlanViewWidget.h>

/// A host with entries of its own in the control's popups, which says in a list what the control announces.
class HostWindow : public QMainWindow {
    Q_OBJECT

public:
    HostWindow();

    /// What a click on the host's entry does, here for the cell of this line and month, both from 1.
    void runCommand(const QString& command, short month, short line);

private:
    void fillTables();
    void offerEntries();
    void listen();
    void report(const QString& text);
    void put(int line, int month, double value);

    std::shared_ptr<planview::MemoryTable> cells_;
    std::shared_ptr<planview::MemoryTable> oldCells_;
    planview::PlanViewWidget* view_ = nullptr;
    QListWidget* events_ = nullptr;
};
