// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <streambuf>

#include <gtest/gtest.h>

#include <planview/Trace.h>
#include <planview/Version.h>

#include "support/TempFolder.h"
#include "support/TraceOracle.h"
#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"

namespace planview {

using test::Lines;

namespace {

class TraceTest : public test::TracedTest {};

/// A folder of its own for each test.
class LogFolder : public test::TempFolder {
public:
    [[nodiscard]] std::string Log() const {
        std::ifstream file(Path() / "MORVIDA.LOG", std::ios::binary);
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    }
};

std::string LastKey() {
    const ListView& list = frmTrace::Share()->TraceView;
    return list.Item(list.Count() - 1).key;
}

}  // namespace

TEST_F(TraceTest, EnableOpensTheLogWithTheMachine) {
    modPlan::Trace_Disable(platform.Interfaces());
    modPlan::Trace_Enable(platform.Interfaces());
    modPlan::Trace_Enable(platform.Interfaces());  // is on already
    const std::string version =
        std::to_string(VersionMajor) + "." + std::to_string(VersionMinor) + "." + std::to_string(VersionRevision);
    EXPECT_EQ(Entries(), (Lines{
                             "USERCONTROL |  | Trace_Enable | {}",
                             "USERCONTROL |  | Morvida | {version: " + version + "}",
                             "USERCONTROL | MEMORY CHECK |  | {total physical memory: 130484 KBytes}",
                             "USERCONTROL | MEMORY CHECK |  | {free memory..........: 128000 KBytes}",
                             "USERCONTROL | MEMORY CHECK |  | {used memory..........: 128000 KBytes}",
                             "USERCONTROL | OS CHECK |  | {OS platform: Windows Nt [Win32]}",
                         }));
    EXPECT_EQ(frmTrace::Share()->TraceView.Item(0).key, "TRACE{1}");
    EXPECT_EQ(LastKey(), "TRACE{6}");
    EXPECT_EQ(platform.formCalls.back(), "load frmTrace");
}

TEST_F(TraceTest, SystemFiguresAreCappedLocalisedOrLeftOut) {
    platform.memory = MemoryStatus{25'000'000'000, 536'064, 512};
    modPlan::TraceDecimalMark = ',';
    modPlan::MemoryCheck(platform);
    modPlan::TraceDecimalMark = '.';
    EXPECT_EQ(Entries(), (Lines{
                             "USERCONTROL | MEMORY CHECK |  | {total physical memory: 2097151,99902344 KBytes}",
                             "USERCONTROL | MEMORY CHECK |  | {free memory..........: 0,5 KBytes}",
                             "USERCONTROL | MEMORY CHECK |  | {used memory..........: 523 KBytes}",
                         }));
    ForgetEntries();
    platform.memory.reset();
    platform.platformId.reset();
    modPlan::MemoryCheck(platform);
    modPlan::OsCheck(platform);
    EXPECT_EQ(Entries(), Lines{});
    platform.platformId = 3;
    modPlan::OsCheck(platform);
    EXPECT_EQ(Entries(), Lines{"USERCONTROL | OS CHECK |  | {OS platform: !!! Unknown !!!}"});
}

TEST_F(TraceTest, HoldsFiveThousandEntriesAndDropsTheOldest) {
    modPlan::TraceCounter = 0;
    for (int i = 0; i < 5003; ++i) {
        modPlan::TraceWrite("CHART", "", "Redraw", "{}");
    }
    const ListView& list = frmTrace::Share()->TraceView;
    EXPECT_EQ(list.Count(), 5000U);
    EXPECT_EQ(list.Item(0).key, "TRACE{4}");
    EXPECT_EQ(LastKey(), "TRACE{5003}");
}

TEST_F(TraceTest, ACounterAtItsEndStopsEntriesAndNothingElse) {
    modPlan::TraceCounter = std::numeric_limits<std::int32_t>::max() - 1;
    modPlan::TraceWrite("CHART", "", "Redraw", "{}");
    modPlan::TraceWrite("CHART", "", "Redraw", "{}");
    EXPECT_EQ(Entries().size(), 1U);
    EXPECT_EQ(LastKey(), "TRACE{2147483647}");
}

TEST_F(TraceTest, DisableSavesWithoutItsOwnEntryAndEmptiesTheList) {
    const LogFolder folder;
    platform.logFolder = folder.Name() + "/Protokolle f\xC3\xBCr \xCE\xB1";  // made on demand
    platform.answer = MessageAnswer::Yes;
    modPlan::TraceWrite("GRIDCTL", "", "Redraw", "{}");
    modPlan::Trace_Disable(platform.Interfaces());

    ASSERT_EQ(platform.messages.size(), 1U);
    const MessageBoxRequest& asked = platform.messages[0];
    EXPECT_EQ(asked.text, "Save trace to file ?");
    EXPECT_EQ(asked.title, "Trace");
    EXPECT_EQ(asked.buttons, MessageButtons::YesNo);
    EXPECT_EQ(asked.icon, MessageIcon::Exclamation);
    EXPECT_EQ(asked.defaultAnswer, MessageAnswer::No);
    EXPECT_EQ(platform.formCalls.back(), "unload frmTrace");
    EXPECT_FALSE(frmTrace::Find());
    EXPECT_FALSE(TraceIsOn());

    std::ifstream log(folder.Path() / u8"Protokolle f\u00FCr \u03B1" / "MORVIDA.LOG", std::ios::binary);
    std::string line;
    std::getline(log, line);
    EXPECT_EQ(line, "GRIDCTL                           Redraw                        {}\r");
    EXPECT_FALSE(std::getline(log, line)) << "nothing behind it";
}

TEST_F(TraceTest, AnsweringNoLeavesAnEarlierLogAlone) {
    const LogFolder folder;
    std::ofstream(folder.Path() / "MORVIDA.LOG") << "earlier";
    platform.logFolder = folder.Name();
    modPlan::TraceSave(platform.Interfaces(), frmTrace::Share()->TraceView);  // the default is No
    EXPECT_EQ(folder.Log(), "earlier");
    platform.answer = MessageAnswer::Yes;
    modPlan::TraceSave(platform.Interfaces(), frmTrace::Share()->TraceView);
    EXPECT_EQ(folder.Log(), "") << "each save replaces the one before, also an empty list";
}

TEST_F(TraceTest, AnUnwritableLogIsGivenUpSilently) {
    const LogFolder folder;
    std::ofstream(folder.Path() / "file") << "no folder";
    platform.logFolder = folder.Name() + "/file/below";
    platform.answer = MessageAnswer::Yes;
    modPlan::TraceSave(platform.Interfaces(), frmTrace::Share()->TraceView);
    EXPECT_EQ(platform.messages.size(), 1U);
}

TEST_F(TraceTest, LogFieldsStandInTheirColumns) {
    const struct {
        const char* why;
        std::string control, message, method, line;
    } cases[] = {
        {"a control of 14 characters fits", std::string(14, 'c'), "m", "e",
         std::string(14, 'c') + "m" + std::string(19, ' ') + "e" + std::string(29, ' ') + "{}\r\n"},
        {"a control of 15 moves the message down", std::string(15, 'c'), "m", "e",
         std::string(15, 'c') + "\r\n" + std::string(14, ' ') + "m" + std::string(19, ' ') + "e" +
             std::string(29, ' ') + "{}\r\n"},
        {"a message of 20 moves the method down", "C", std::string(20, 'm'), "e",
         "C" + std::string(13, ' ') + std::string(20, 'm') + "\r\n" + std::string(34, ' ') + "e" +
             std::string(29, ' ') + "{}\r\n"},
        {"a method of 30 moves the parameter down", "C", "", std::string(30, 'e'),
         "C" + std::string(33, ' ') + std::string(30, 'e') + "\r\n" + std::string(64, ' ') + "{}\r\n"},
        {"characters are counted, not bytes", "Ü", "", "", "Ü" + std::string(63, ' ') + "{}\r\n"},
    };
    for (const auto& row : cases) {
        ForgetEntries();
        modPlan::TraceWrite(row.control, row.message, row.method, "{}");
        std::ostringstream log;
        WriteTraceLog(log);
        EXPECT_EQ(log.str(), row.line) << row.why;
    }
}

TEST_F(TraceTest, AStreamGetsWhatTheListHasNoRoomFor) {
    std::ostringstream streamed;
    std::size_t atEnd = 0;
    {
        const TraceStream stream(streamed);
        modPlan::TraceWrite("FIRST", "message", "method", "{\xff}");
        std::ostringstream log;
        WriteTraceLog(log);
        EXPECT_EQ(streamed.str(), log.str()) << "in the same form";
        for (std::size_t i = 0; i < modPlan::MaxTraceEntries; ++i) {
            modPlan::TraceWrite("CHART", "", "Redraw", "{}");
        }
        log.str({});
        WriteTraceLog(log);
        EXPECT_EQ(log.str().find("FIRST"), std::string::npos);
        EXPECT_TRUE(streamed.str().starts_with("FIRST"));
        EXPECT_TRUE(streamed.str().ends_with(log.str()));
        EXPECT_EQ(stream.Error(), 0);
        atEnd = streamed.str().size();
    }
    modPlan::TraceWrite("LAST", "", "", "{}");
    EXPECT_EQ(streamed.str().size(), atEnd);
}

TEST_F(TraceTest, AStreamThatFailsHarmsNeitherTheTraceNorAnotherOne) {
    /// Takes nothing, as a full disk does; or throws.
    class FullDisk final : public std::streambuf {
    public:
        explicit FullDisk(bool throws) : throws_(throws) {}

    private:
        int_type overflow(int_type) override {
            if (throws_) {
                throw std::runtime_error("disk");
            }
            errno = ENOSPC;
            return traits_type::eof();
        }
        bool throws_;
    };
    for (const bool throws : {false, true}) {
        FullDisk disk(throws);
        std::ostream broken(&disk);
        broken.exceptions(throws ? std::ios::badbit : std::ios::goodbit);
        std::ostringstream good;
        const TraceStream first(broken);
        const TraceStream second(good);
        ForgetEntries();
        modPlan::TraceWrite("A", "", "", "{}");
        modPlan::TraceWrite("B", "", "", "{}");
        EXPECT_EQ(Entries(), (Lines{"A |  |  | {}", "B |  |  | {}"}));
        const std::string written = good.str();
        EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 2);
        EXPECT_EQ(second.Error(), 0);
        EXPECT_NE(first.Error(), 0);
        if (!throws) {
            EXPECT_EQ(first.Error(), ENOSPC);
        }
    }
}

TEST_F(TraceTest, ReplacePointTellsWhatItDid) {
    EXPECT_EQ(modPlan::ReplacePoint("1.234.5"), "1,234,5");
    EXPECT_EQ(modPlan::ReplacePoint(""), "");
    EXPECT_EQ(Entries(), (Lines{"GRIDCTL |  | ReplacePoint | {before: 1.234.5 - after: 1,234,5}",
                                "GRIDCTL |  | ReplacePoint | {before:  - after: }"}));
}

TEST_F(TraceTest, ShowNeedsTheTrace) {
    modPlan::Trace_Show(platform.Interfaces());
    EXPECT_EQ(platform.formCalls.back(), "show frmTrace");
    modPlan::Trace_Disable(platform.Interfaces());
    const std::size_t calls = platform.formCalls.size();
    modPlan::Trace_Show(platform.Interfaces());
    EXPECT_EQ(platform.formCalls.size(), calls);
}

TEST_F(TraceTest, ParameterTextsConvertTheirValues) {
    modPlan::TraceDecimalMark = ',';
    EXPECT_EQ(TraceText("{flag: ", true, " - n: ", std::int16_t{-5}, " - v: ", 12.5, "}").Text(),
              "{flag: True - n: -5 - v: 12,5}");
    const std::string longText(5000, 'x');
    EXPECT_EQ(TraceText("{before: ", longText, " - after: ", 7, "}").Text(), "{before: " + longText + " - after: 7}");
    modPlan::TraceDecimalMark = '.';
}

TEST_F(TraceTest, EntriesAreValidUtf8WhateverTheHostSays) {
    const struct {
        const char* why;
        std::string text, shown;
    } cases[] = {
        {"well-formed", "Ü € 😀", "Ü € 😀"},
        {"a byte that begins nothing", "a\xFF z", "a? z"},
        {"a character without its end", "a\xE2\x82", "a??"},
        {"an overlong form", "\xC0\xAF", "??"},
        {"a surrogate", "\xED\xA0\x80", "???"},
    };
    for (const auto& row : cases) {
        ForgetEntries();
        modPlan::TraceWrite("GRIDCTL", row.text, "Contents", row.text);
        EXPECT_EQ(Entries(), Lines{"GRIDCTL | " + row.shown + " | Contents | " + row.shown}) << row.why;
    }
}

TEST_F(TraceTest, LongErrorTextsEndBetweenCharacters) {
    ExpectErrors();
    ErrorTrap("CHART", "Redraw", [] { throw std::runtime_error(std::string(999, 'x') + "Ü"); });
    ErrorTrap("CHART", "Redraw", [] { throw std::runtime_error(std::string(998, 'x') + "Üz"); });
    EXPECT_EQ(Entries(), (Lines{"CHART | ERROR | Redraw | {error: " + std::string(999, 'x') + "}",
                                "CHART | ERROR | Redraw | {error: " + std::string(998, 'x') + "Ü}"}));
}

TEST_F(TraceTest, TrapsEndWhatFailsAndNameIt) {
    ExpectErrors();
    bool reached = false;
    EXPECT_FALSE(ErrorTrap("GRIDCTL", "FillCells", [&] {
        throw std::runtime_error("no row 3");
        reached = true;
    }));
    EXPECT_FALSE(ErrorTrap("CHART", "Redraw", [] { throw 5; }));
    EXPECT_TRUE(ErrorTrap("CHART", "Redraw", [] {}));
    EXPECT_FALSE(reached);
    EXPECT_EQ(Entries(), (Lines{"GRIDCTL | ERROR | FillCells | {error: no row 3}",
                                "CHART | ERROR | Redraw | {error: unknown exception}"}));
    int ran = 0;
    ResumeNext([] { throw 1; }, [&] { ++ran; }, [] { throw std::runtime_error("x"); }, [&] { ++ran; });
    EXPECT_EQ(ran, 2);
}

}  // namespace planview
