// SPDX-License-Identifier: MIT
#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "xlsx/XlsxFixture.h"

namespace planview::test {

namespace {

namespace fs = std::filesystem;

class SavingTest : public XlsxTest {
protected:
    [[nodiscard]] std::string SaveMessage(const fs::path& file) const {
        return AutomationMessage([&] { book_.Call("Saveas", file.string()); });
    }
    [[nodiscard]] static int FileCount(const fs::path& folder) {
        return static_cast<int>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }
};

/// Other rights for a while: the administrator's know no limits.
class AsNobody {
public:
    AsNobody() : was_(geteuid()) {
        constexpr uid_t Nobody = 65534;
        if (was_ == 0) {
            static_cast<void>(!seteuid(Nobody));
        }
    }
    ~AsNobody() { static_cast<void>(!seteuid(was_)); }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

private:
    uid_t was_;
};

/// No file may grow beyond this for a while, as on a disk that is full.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &was_);
        const rlimit limit{bytes, was_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &was_);
        std::signal(SIGXFSZ, handler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit was_{};
    void (*handler_)(int);
};

TEST_F(SavingTest, AnotherProgramFindsEverything) {
    const Late sheet = NewSheet();
    book_.Put("Title", "Zet Q/7 download");
    book_.Put("Subject", "Plän <&>");
    const Late cells = sheet.Get("Cells");
    cells.Put("HorizontalAlignment", 4);
    cells.Get("Borders").Put("LineStyle", 1);
    cells.Get("Borders").Put("ColorIndex", 1);
    cells.Get("Font").Put("Size", 10);
    for (const Late& captions : {sheet.Get("Columns", 1), sheet.Get("Rows", 1)}) {
        captions.Get("Font").Put("Bold", true);
        captions.Get("Interior").Put("ColorIndex", 15);
        captions.Get("Borders").Put("LineStyle", 9);
        captions.Put("HorizontalAlignment", 2);
    }
    sheet.Get("Columns", 1).Put("ColumnWidth", 20);
    sheet.Get("Cells", 1, 2).Put("Value", "=1+1");
    sheet.Get("Cells", 2, 1).Put("Value", " <Zeile> & \"ü\"\n\x01_x0041_ ");
    const auto fill = [&](int row, int column, int color, bool locked, const Variant& value) {
        const Late cell = sheet.Get("Cells", row, column);
        cell.Get("Interior").Put("ColorIndex", color);
        cell.Put("Locked", locked);
        cell.Put("Value", value);
    };
    fill(2, 2, 2, false, 1234.5);
    fill(3, 2, 15, true, -0.1);
    fill(4, 2, 15, true, Variant());
    fill(5, 2, 3, false, true);
    fill(6, 2, 1, false, 123456789012345.0);
    sheet.Get("Cells", 2, 2).Put("NumberFormat", "#,##0.0 \"€\"");
    const Late window = application_.Get("ActiveWindow");
    window.Put("SplitRow", 1);
    window.Put("SplitColumn", 1);
    window.Put("FreezePanes", true);
    const Late page = sheet.Get("PageSetup");
    page.Put("Orientation", 2);
    page.Put("PrintTitleRows", "$1:$1");
    page.Put("PrintTitleColumns", "$A:$A");
    sheet.Put("Name", "Plan 2026");
    sheet.Call("Protect");
    book_.Call("Saveas", Path("witness.xlsx").string());

    const std::string caption =
        " fill FFC0C0C0 edges ('double', 'FF000000') bold True size 10.0 align left locked True format General\n";
    const std::string cell = " edges ('thin', 'FF000000') bold False size 10.0 align right locked ";
    EXPECT_EQ(RunScript("workbook-facts '" + Path("witness.xlsx").string() + "' A1 B1 A2 B2 B3 B4 B5 B6 C9"),
              "sheets Plan 2026\n"
              "title Zet Q/7 download\n"
              "subject Plän <&>\n"
              "protected True\n"
              "frozen B2\n"
              "page landscape $1:$1 $A:$A\n"
              "size 6 2\n"
              "columns 1 1 20.71 True FFC0C0C0 double\n"
              "columns 2 16384 9.14 False 00000000 thin\n"
              "A1 None" +
                  caption + "B1 '=1+1'" + caption + "A2 ' <Zeile> & \"ü\"\\n_x0001__x005F_x0041_ '" + caption +
                  "B2 1234.5 fill FFFFFFFF" + cell +
                  "False format #,##0.0 \"€\"\n"
                  "B3 -0.1 fill FFC0C0C0" +
                  cell +
                  "True format General\n"
                  "B4 None fill FFC0C0C0" +
                  cell +
                  "True format General\n"
                  "B5 True fill FFFF0000" +
                  cell +
                  "False format General\n"
                  "B6 123456789012345 fill FF000000" +
                  cell +
                  "False format General\n"
                  "C9 None fill None edges (None, None) bold False size 11.0 align None locked True format General\n");
    const Late again = application_.Get("Workbooks").Call("Open", Path("witness.xlsx").string());
    EXPECT_EQ(ValueAt(again.Get("ActiveSheet"), 2, 1), "t: <Zeile> & \"ü\"\n\x01_x0041_ ");
}

TEST_F(SavingTest, AFailedSaveSaysWhyAndLeavesTheOldFileWhole) {
    NewSheet().Get("Cells", 1, 1).Put("Value", 1);
    const fs::path folder = Path("closed");
    fs::create_directory(folder);
    const fs::path file = folder / "old.xlsx";
    WriteAll(file, "old");
    WriteAll(folder / "file", "");
    fs::permissions(file, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);

    struct Case {
        const char* name;
        fs::path target;
        const char* message;
    };
    const Case cases[] = {
        {"missing folder", Path("missing/a.xlsx"), "does not exist. Create it"},
        {"a file as folder", folder / "file/a.xlsx", "is no folder"},
        {"a folder in the way", folder / "way.xlsx", "something else of that name"},
        {"another kind of file", folder / "a.xls", "ends in .xlsx"},
        {"no name", "", "ends in .xlsx"},
        {"too long a name", folder / (std::string(300, 'x') + ".xlsx"), "too long"},
    };
    fs::create_directory(folder / "way.xlsx");
    const int before = FileCount(folder);
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        const std::string message = SaveMessage(one.target);
        EXPECT_NE(message.find(one.message), std::string::npos) << message;
    }
    {
        const AsNobody nobody;
        EXPECT_NE(SaveMessage(file).find("may not be changed"), std::string::npos) << SaveMessage(file);
        EXPECT_NE(SaveMessage(folder / "new.xlsx").find("no permission to write into the folder"), std::string::npos)
            << SaveMessage(folder / "new.xlsx");
    }
    EXPECT_EQ(ReadAll(file), "old");
    EXPECT_EQ(FileCount(folder), before);
}

TEST_F(SavingTest, AFullDiskLeavesTheOldFileWhole) {
    const Late sheet = NewSheet();
    for (int row = 1; row <= 3000; ++row) {
        sheet.Get("Cells", row, 1).Put("Value", row * 1.37);
    }
    const fs::path file = Path("old.xlsx");
    WriteAll(file, "old");
    const int before = FileCount(Path("."));
    // The smaller one stops the zip file, too, the larger only the temporary file of its sheet.
    for (const rlim_t bytes : {8'000, 60'000}) {
        SCOPED_TRACE(bytes);
        std::string message;
        {
            const FileSizeLimit limit(bytes);
            message = SaveMessage(file);
        }
        EXPECT_NE(message.find("the disk is full"), std::string::npos) << message;
        EXPECT_EQ(ReadAll(file), "old");
        EXPECT_EQ(FileCount(Path(".")), before);
    }
    EXPECT_EQ(SaveMessage(file), "");
    EXPECT_EQ(ReadAll(file).substr(0, 2), "PK");
}

TEST_F(SavingTest, AnOlderFileIsReplacedBehindItsLinkWithItsPermissions) {
    NewSheet().Get("Cells", 1, 1).Put("Value", "Ä");
    const fs::path file = Path("real plän.xlsx");
    WriteAll(file, "old");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(file, Path("link.xlsx"));
    EXPECT_EQ(SaveMessage(Path("link.xlsx")), "");
    EXPECT_TRUE(fs::is_symlink(Path("link.xlsx")));
    EXPECT_EQ(ReadAll(file).substr(0, 2), "PK");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

}  // namespace

}  // namespace planview::test
