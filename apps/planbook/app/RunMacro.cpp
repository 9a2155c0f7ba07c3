// SPDX-License-Identifier: MIT
#include "app/RunMacro.h"

#include <QApplication>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include <planview/PlanView.h>
#include <planview/qt/PlanViewWidget.h>

#include "app/BookSession.h"
#include "app/HostMessageBoxes.h"
#include "app/QtMessages.h"
#include "app/Questions.h"
#include "book/BookError.h"
#include "book/BookStore.h"
#include "book/CellValue.h"
#include "book/LineCaption.h"
#include "book/Macros.h"

namespace planbook {

using planview::MemoryTable;
using planview::Variant;

namespace {

constexpr std::size_t MostFaults = 20;

/// Nobody is there to be asked: what would be told is kept, and every question is answered so that nothing is lost.
class NoQuestions final : public Questions {
public:
    void tellFailure(const QString& text) override { failure = text.toStdString(); }
    void tell(const QString& /*text*/) override {}
    [[nodiscard]] bool mayRevert(int /*changes*/) override { return false; }
    [[nodiscard]] Keep whoseValues(const std::vector<DisputedCell>& /*cells*/) override { return Keep::Theirs; }
    [[nodiscard]] int chooseLine(const QString& /*text*/, const QStringList& /*lines*/) override { return -1; }
    [[nodiscard]] std::optional<double> askNumber(const QString& /*text*/, double /*present*/,
                                                  const std::string& /*numberCode*/) override {
        return std::nullopt;
    }
    [[nodiscard]] std::optional<double> askPercent(const QString& /*text*/) override { return std::nullopt; }
    [[nodiscard]] std::optional<QString> askName(const QString& /*text*/, const QString& /*suggested*/) override {
        return std::nullopt;
    }
    [[nodiscard]] OfRecording whatOfRecording(int /*steps*/) override { return OfRecording::GoOn; }
    [[nodiscard]] bool mayDiscardRecording(int /*steps*/) override { return false; }
    [[nodiscard]] OfRecording whatOfTrace() override { return OfRecording::GoOn; }
    [[nodiscard]] std::optional<QString> chooseTraceFile(const QString& /*suggested*/) override { return std::nullopt; }

    std::string failure;
};

using Values = std::map<std::pair<std::int32_t, std::int32_t>, Variant>;

Values ValuesOf(const Book& book) {
    const MemoryTable& tab = book[BookTable::Tab];
    Values values;
    for (std::int32_t row = 1; row <= tab.RowCount(); ++row) {
        values.emplace(std::pair(tab.Value(row, "Z").AsInt32(), tab.Value(row, "C").AsInt32()), tab.Value(row, "V"));
    }
    return values;
}

[[noreturn]] void Refuse(const MacroRequest& request, const std::string& why) {
    throw BookError("Cannot run \"" + request.name + "\" in the book \"" + request.book.string() + "\": " + why);
}

std::string ListOf(const std::vector<std::string>& names, const char* none) {
    std::string list;
    for (const std::string& name : names) {
        list += "\n  " + name;
    }
    return names.empty() ? std::string(none) : list;
}

MacroEntry MacroFor(const MacroRequest& request, const Book& book) {
    if (std::optional<MacroEntry> found = FindMacro(book, request.name)) {
        return std::move(*found);
    }
    std::vector<std::string> names;
    bool several = false;
    for (const MacroEntry& macro : MacrosOf(book)) {
        several = several || macro.name == request.name;
        names.push_back(macro.name);
    }
    Refuse(request, (several ? "several macros are called so; rename all but one. It has these: "
                             : "the book has no macro of this name. It has these: ") +
                        ListOf(names, "none."));
}

/// Makes the line the selected one.
void SelectLine(const MacroRequest& request, planview::PlanViewWidget& view, const Book& book) {
    const std::string row = LineKeyOf(book, *request.line);
    if (row.empty()) {
        Refuse(request, "there is no line, or more than one, called \"" + *request.line +
                            "\". The lines are: " + ListOf(LineCaptions(book), "none."));
    }
    const MemoryTable& periods = book[BookTable::ColsIndex];
    for (std::int32_t period = 1; period <= periods.RowCount(); ++period) {
        const QString column = QString::fromStdString(periods.Value(period, "GRID_ID").AsText());
        if (view.selectCell(column, QString::fromStdString(row))) {
            return;
        }
    }
    Refuse(request, "the line \"" + *request.line + "\" is hidden. Show it in the table first.");
}

void PrintChanges(const Values& before, const Book& book) {
    const auto shown = [](const Variant& value) {
        const std::string text = value.AsText();
        return text.empty() ? std::string("(empty)") : text;
    };
    for (const auto& [place, value] : ValuesOf(book)) {
        const auto found = before.find(place);
        const Variant old = found == before.end() ? Variant() : found->second;
        if (!SameValue(old, value)) {
            std::printf("%s: %s -> %s\n", CellName(book, {place.first, place.second}).c_str(), shown(old).c_str(),
                        shown(value).c_str());
        }
    }
}

enum class Outcome { Stored, ChangedElsewhere };

/// One run. What it changes is stored as a whole, and only when nobody has changed the book since it was read: a macro
/// that calculated with older values would take another program's change back.
Outcome TryToRun(const MacroRequest& request, planview::MessageBoxes& messageBoxes, ExitCode& code) {
    NoQuestions questions;
    planview::PlanViewWidget view(planview::Platform{.messageBoxes = &messageBoxes});
    BookSession session(view, questions);
    session.holdChanges();
    session.open(request.book);
    if (session.report().LosesValues()) {
        Refuse(request, "it would calculate with incomplete figures. " + session.report().Headline() + "\n" +
                            session.report().List(MostFaults) + "\nMend these places first. Nothing was changed.");
    }
    const MacroEntry macro = MacroFor(request, session.book());
    if (session.isReadOnly()) {
        Refuse(request,
               "the book cannot be written. Check your access to the file and its folder, and "
               "that its name has at most 247 bytes.");
    }
    const Values before = ValuesOf(session.book());
    if (request.line) {
        SelectLine(request, view, session.book());
    } else if (IsForSelectedLine(session.book(), macro)) {
        // The line of the current cell would do, but nobody has chosen it.
        Refuse(request, "it is for the selected line. Say which one by --line CAPTION. The lines are: " +
                            ListOf(LineCaptions(session.book()), "none."));
    }
    const planview::MacroResult result = view.runMacro(QString::fromStdString(macro.key), request.line.has_value());
    if (!questions.failure.empty()) {
        Refuse(request, questions.failure);
    }
    if (!result.done) {
        Refuse(request, result.message);
    }
    if (!session.saveHeld()) {
        return Outcome::ChangedElsewhere;
    }
    PrintChanges(before, session.book());
    std::printf("%s: %s\n", macro.name.c_str(), result.message.c_str());
    code = TellReport(request.book, session.report());
    return Outcome::Stored;
}

}  // namespace

ExitCode RunMacro(int& argc, char** argv, const MacroRequest& request) {
    constexpr const char* PlatformVariable = "QT_QPA_PLATFORM";
    if (!qEnvironmentVariableIsSet(PlatformVariable)) {
        qputenv(PlatformVariable, "offscreen");
    }
    qInstallMessageHandler(writeQtMessage);
    const QApplication application(argc, argv);
    HostMessageBoxes messageBoxes;  // without a window: answered as nobody would
    constexpr int MostTries = 20;
    for (int tries = 0; tries < MostTries; ++tries) {
        ExitCode code = ExitCode::Done;
        if (TryToRun(request, messageBoxes, code) == Outcome::Stored) {
            return code;
        }
    }
    Refuse(request, "other programs kept changing the book. Nothing was stored; try again when they are done.");
}

}  // namespace planbook
