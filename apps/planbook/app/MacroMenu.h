// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <string>

class QActionGroup;
class QMenu;

namespace planview {
class PlanViewWidget;
}

namespace planbook {

class BookSession;
class Questions;
struct MacroEntry;

/// What the Macro menu has beside the commands of recording: running what the book holds. When a recording ends it asks
/// for a name and keeps the recording in the book.
class MacroMenu : public QObject {
    Q_OBJECT

public:
    MacroMenu(QMenu& menu, planview::PlanViewWidget& view, BookSession& session, Questions& questions, QObject* parent);

    /// Ends a recording because its book is to be left; asks what becomes of it. False: the user stays.
    [[nodiscard]] bool leaveRecording();

Q_SIGNALS:
    /// A macro has run; the text says what it came to.
    void ran(const QString& text);

private:
    enum class Where { AsItSays, SelectedLine };

    /// A menu with an entry for each macro.
    QMenu* addMacros(QMenu& menu, const QString& title, void (MacroMenu::*chosen)(const MacroEntry&));
    void fill(QMenu& menu, void (MacroMenu::*chosen)(const MacroEntry&));
    void allowRecording();
    void keepRecording();
    void run(const MacroEntry& macro);
    /// Opens the macro of this node in the macro editor; nothing for a folder.
    void edit(const std::string& key);
    void runOnSelectedLine(const MacroEntry& macro);
    void check(const MacroEntry& macro);
    void runThere(const MacroEntry& macro, Where where);

    planview::PlanViewWidget& view_;
    BookSession& session_;
    Questions& questions_;
    QActionGroup* recordable_;  // where the book can keep a recording
    bool asksForName_ = true;   // when a recording ends
};

}  // namespace planbook
