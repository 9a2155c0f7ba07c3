// SPDX-License-Identifier: MIT
#include "app/MacroMenu.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QScopedValueRollback>
#include <QSet>
#include <QTimer>
#include <optional>
#include <string>

#include <planview/Commands.h>
#include <planview/PlanView.h>
#include <planview/qt/PlanViewWidget.h>

#include "app/BookSession.h"
#include "app/Questions.h"
#include "book/Macros.h"

namespace planbook {

using planview::MacroResult;
using planview::PlanViewWidget;

namespace {

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

/// The caption with its first letter that is not taken as its mnemonic; takes it.
QString WithLetter(const QString& caption, QSet<QChar>& taken) {
    qsizetype letter = 0;
    while (letter < caption.size() &&
           (!caption[letter].isLetterOrNumber() || taken.contains(caption[letter].toLower()))) {
        ++letter;
    }
    QString text = caption.left(letter).replace('&', "&&");
    if (letter < caption.size()) {
        taken.insert(caption[letter].toLower());
        text += '&' + caption.mid(letter).replace('&', "&&");
    }
    return text;
}

}  // namespace

MacroMenu::MacroMenu(QMenu& menu, PlanViewWidget& view, BookSession& session, Questions& questions, QObject* parent)
    : QObject(parent), view_(view), session_(session), questions_(questions), recordable_(new QActionGroup(this)) {
    recordable_->addAction(view_.action(planview::Command::StartRecording));
    menu.addSeparator();
    addMacros(menu, "&Run", &MacroMenu::run);
    addMacros(menu, "Run on selected &line", &MacroMenu::runOnSelectedLine);
    addMacros(menu, "&Check", &MacroMenu::check);
    connect(&session_, &BookSession::opened, this, &MacroMenu::allowRecording);
    // After the event, so that the view is not built anew while it raises one.
    connect(&view_, &PlanViewWidget::MacroRecordSave, this, [this] {
        if (asksForName_) {
            QTimer::singleShot(0, this, &MacroMenu::keepRecording);
        }
    });
    // A double click on its node in the tree, or Return.
    connect(&view_, &PlanViewWidget::GridTreeMacroClick, this,
            [this](const QString& key) { QTimer::singleShot(0, this, [this, key] { edit(key.toStdString()); }); });
    connect(&view_, &PlanViewWidget::MacroTreeNodeDropped, this,
            [this](const QString& target, const QString& moved, short action) {
                QTimer::singleShot(0, this, [=, this] {
                    if (session_.isOpen() && !session_.isReadOnly()) {
                        view_.moveMacroNode(moved, target, planview::DropAction{action});
                    }
                });
            });
    allowRecording();
}

QMenu* MacroMenu::addMacros(QMenu& menu, const QString& title, void (MacroMenu::*chosen)(const MacroEntry&)) {
    QMenu* macros = menu.addMenu(title);
    connect(macros, &QMenu::aboutToShow, this, [this, macros, chosen] { fill(*macros, chosen); });
    return macros;
}

void MacroMenu::fill(QMenu& menu, void (MacroMenu::*chosen)(const MacroEntry&)) {
    menu.clear();
    if (session_.isOpen()) {
        QSet<QChar> taken;
        for (const MacroEntry& macro : MacrosOf(session_.book())) {
            menu.addAction(WithLetter(toQt(macro.name), taken), this,
                           [this, macro, chosen] { (this->*chosen)(macro); });
        }
    }
    if (menu.isEmpty()) {
        menu.addAction("This book has no macros")->setEnabled(false);
    }
}

void MacroMenu::allowRecording() {
    recordable_->setEnabled(session_.isOpen() && !session_.isReadOnly());
}

// --- Keeping

void MacroMenu::keepRecording() {
    if (!session_.isOpen() || view_.recordedSteps() == 0) {
        questions_.tell("No step was recorded, so there is nothing to keep.");
        return;
    }
    QString suggested = toQt(FreeRecordingName(session_.book()));
    while (true) {
        const std::optional<QString> name =
            questions_.askName("Keep the recording in the book under this name:", suggested);
        if (!name) {
            if (questions_.mayDiscardRecording(view_.recordedSteps())) {
                return;
            }
            continue;
        }
        const std::string wanted = name->trimmed().toStdString();
        bool taken = false;
        for (const MacroEntry& macro : MacrosOf(session_.book())) {
            taken = taken || macro.name == wanted;
        }
        if (!wanted.empty() && !taken) {
            const QString key = view_.keepRecording(toQt(wanted), toQt(RecordingsNode(session_.book())));
            session_.saveTables();
            if (!key.isEmpty()) {
                view_.plv_ActiveNode(key);
            }
            return;
        }
        questions_.tellFailure(taken ? QString("There is a macro called \"%1\" already. Take another name.").arg(*name)
                                     : QString("The recording needs a name."));
        suggested = taken ? *name : suggested;
    }
}

bool MacroMenu::leaveRecording() {
    if (!view_.isRecording()) {
        return true;
    }
    const int steps = view_.recordedSteps();
    const Questions::OfRecording what =
        steps == 0 ? Questions::OfRecording::Discard : questions_.whatOfRecording(steps);
    if (what == Questions::OfRecording::GoOn) {
        return false;
    }
    {
        const QScopedValueRollback asks(asksForName_, false);
        view_.stopRecording();
    }
    if (what == Questions::OfRecording::Keep) {
        keepRecording();
    }
    return true;
}

// --- Running

void MacroMenu::run(const MacroEntry& macro) {
    runThere(macro, Where::AsItSays);
}

void MacroMenu::runOnSelectedLine(const MacroEntry& macro) {
    runThere(macro, Where::SelectedLine);
}

void MacroMenu::runThere(const MacroEntry& macro, Where where) {
    if (!session_.isOpen()) {
        return;
    }
    static_cast<void>(session_.takeGaveWay());
    const MacroResult result = view_.runMacro(toQt(macro.key), where == Where::SelectedLine);
    if (result.done) {
        session_.saveTables();
        if (session_.settle()) {  // else the user has been told that nothing is saved
            Q_EMIT ran(toQt(macro.name + ": ") +
                       (session_.takeGaveWay()
                            ? QString("where another window changed the same cells, its values stay.")
                            : toQt(result.message)));
        }
    } else if (!result.message.empty()) {
        questions_.tellFailure(QString("\"%1\" was not run.\n\n%2").arg(toQt(macro.name), toQt(result.message)));
    }
}

void MacroMenu::edit(const std::string& key) {
    if (session_.isOpen() && !IsFolder(session_.book(), key)) {
        view_.editMacro(toQt(key));
    }
}

void MacroMenu::check(const MacroEntry& macro) {
    const MacroResult result = view_.checkMacro(toQt(macro.key));
    if (result.done) {
        questions_.tell(QString("\"%1\" can be run. %2").arg(toQt(macro.name), toQt(result.message)));
    } else {
        questions_.tellFailure(QString("\"%1\" cannot be run.\n\n%2").arg(toQt(macro.name), toQt(result.message)));
    }
}

}  // namespace planbook
