// SPDX-License-Identifier: MIT
#include "planbook/BookWindow.h"
#include "planbook/TestFolder.h"

namespace planbook {
namespace {

QString ToQt(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

std::string Summary(const planview::UploadPreview& preview) {
    std::string text = preview.error;
    for (const planview::UploadChange& change : preview.changes) {
        text += change.line + "/" + change.period + ": " + change.before + " -> " + change.after + "\n";
    }
    return text;
}

/// The workbook has 7 for Alpha in January and 8,5 for Beta in February, the book what it had before.
void DownloadTwoChanges(BookWindow& window, const std::filesystem::path& file) {
    planview::PlanViewWidget& view = window.window.view();
    window.Type(1, 1, "7");
    window.Type(2, 2, "8,5");
    ASSERT_EQ(view.downloadTo(ToQt(file)).toStdString(), "");
    view.undo();
    view.undo();
    window.window.session().acceptChanges();
}

/// The book was changed since the download, so that no difference is ticked by itself.
planview::UploadPreview TickedPreview(planview::PlanViewWidget& view, const std::filesystem::path& file) {
    planview::UploadPreview preview = view.previewUpload(ToQt(file));
    for (planview::UploadChange& change : preview.changes) {
        EXPECT_EQ(change.origin, planview::UploadOrigin::Book);
        EXPECT_FALSE(change.taken);
        change.taken = true;
    }
    return preview;
}

TEST(ExchangeWindow, ADownloadReplacesNoBook) {
    const TestFolder folder;
    const std::filesystem::path other = folder.Path("other.planbook");
    BookWindow window(MakeSmallBook(folder));
    std::filesystem::copy_file(window.file, other);
    const std::string refusal = window.window.view().downloadTo(ToQt(other)).toStdString();
    EXPECT_NE(refusal.find("there is a planning book of that name"), std::string::npos) << refusal;
    EXPECT_EQ(BookSnapshot(LoadBook(other)).ValueOf({1, 1}).AsText(), "1");
}

TEST(ExchangeWindow, WhatIsUploadedIsInTheBookAndPending) {
    const TestFolder folder;
    const std::filesystem::path file = folder.Path("small.xlsx");
    BookWindow window(MakeSmallBook(folder));
    planview::PlanViewWidget& view = window.window.view();
    DownloadTwoChanges(window, file);
    ASSERT_EQ(window.InFile(1, 1), "1");

    EXPECT_EQ(view.applyUpload(view.previewUpload(ToQt(file))).changed, 0);
    const planview::UploadPreview preview = TickedPreview(view, file);
    EXPECT_EQ(Summary(preview), "Alpha/Jan 08: 1 -> 7\nBeta/Feb 08: 20,5 -> 8,5\n");
    const planview::UploadResult result = view.applyUpload(preview);
    EXPECT_EQ(result.changed, 2);
    EXPECT_EQ(window.InFile(1, 1), "7");
    EXPECT_EQ(window.InFile(2, 2), "8.5");
    QApplication::processEvents();
    EXPECT_EQ(view.pendingChanges(), 2);
    window.ExpectSaved();
    view.undo();
    EXPECT_EQ(window.InFile(1, 1), "1");
    EXPECT_EQ(window.InFile(2, 2), "20.5");
    window.ExpectSaved();
}

TEST(ExchangeWindow, AnUploadThatTheBookRefusesIsTakenBack) {
    const TestFolder folder;
    const std::filesystem::path file = folder.Path("small.xlsx");
    BookWindow window(MakeSmallBook(folder));
    planview::PlanViewWidget& view = window.window.view();
    DownloadTwoChanges(window, file);
    const std::string before = DumpFile(window.file);
    {
        const Obstacle full(Obstacle::Kind::FullDisk, window.file);
        view.applyUpload(TickedPreview(view, file));
        window.window.session().settle();
    }
    EXPECT_EQ(window.Shown(1, 1), "1");
    EXPECT_EQ(window.Shown(2, 2), "20,5");
    EXPECT_EQ(DumpFile(window.file), before);
    EXPECT_EQ(window.questions.failures.size(), 1U);
}

TEST(ExchangeWindow, TheWorkbookIsProposedBesideTheBook) {
    const TestFolder folder;
    BookWindow window(MakeSmallBook(folder));
    const planview::SpreadsheetOptions& options = window.window.view().spreadsheetOptions();
    EXPECT_EQ(options.folder, window.file.parent_path().string());
    EXPECT_EQ(options.fileName, "small.xlsx");
    EXPECT_FALSE(options.printSetup);
}

}  // namespace
}  // namespace planbook
