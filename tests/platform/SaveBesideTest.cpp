// SPDX-License-Identifier: MIT
#include <csignal>
#include <fstream>
#include <iterator>
#include <map>
#include <ostream>
#include <string>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <planview/AutomationObject.h>
#include <planview/SaveBeside.h>

#include "support/TempFolder.h"

namespace planview {
namespace {

namespace fs = std::filesystem;

class SaveBesideTest : public testing::Test {
protected:
    [[nodiscard]] fs::path Path(const std::string& name) const { return folder.Path() / name; }
    void Write(const std::string& name, const std::string& text) const { std::ofstream(Path(name)) << text; }
    /// Name and contents of every file.
    [[nodiscard]] std::map<std::string, std::string> Contents() const {
        std::map<std::string, std::string> contents;
        for (const auto& entry : fs::directory_iterator(folder.Path())) {
            std::ifstream stream(entry.path());
            contents[entry.path().filename()] = {std::istreambuf_iterator<char>(stream), {}};
        }
        return contents;
    }
    static void Save(const fs::path& target, const std::string& text) {
        SaveStream(target, [&](std::ostream& out) { out << text; });
    }
    template <class Action>
    static std::string MessageOf(Action action) {
        try {
            action();
        } catch (const AutomationError& error) {
            return error.what();
        }
        return {};
    }

    test::TempFolder folder;
};

using Files = std::map<std::string, std::string>;

TEST_F(SaveBesideTest, TheNewFileHasTheRightsOfTheOldOneAndIsPrivateWhileItIsWritten) {
    Write("private", "old");
    const fs::perms ownerOnly = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(Path("private"), ownerOnly | fs::perms::group_read);
    constexpr gid_t OtherGroup = 12345;
    const bool isRoot = geteuid() == 0;  // only root gives files to any group
    if (isRoot) {
        ASSERT_EQ(chown(Path("private").c_str(), static_cast<uid_t>(-1), OtherGroup), 0);
    }
    SaveBeside(Path("private"), [&](const fs::path& beside) {
        EXPECT_EQ(fs::status(beside).permissions(), ownerOnly);
        std::ofstream(beside) << "new";
    });
    EXPECT_EQ(Contents(), (Files{{"private", "new"}}));
    EXPECT_EQ(fs::status(Path("private")).permissions(), ownerOnly | fs::perms::group_read);
    struct stat status {};
    ASSERT_EQ(stat(Path("private").c_str(), &status), 0);
    EXPECT_TRUE(!isRoot || status.st_gid == OtherGroup) << status.st_gid;

    const mode_t before = umask(S_IRWXO | S_IWGRP);
    Save(Path("first"), "new");
    umask(before);
    EXPECT_EQ(fs::status(Path("first")).permissions(), ownerOnly | fs::perms::group_read) << "as any new file";
}

TEST_F(SaveBesideTest, AFullDiskCutsNothing) {
    Write("trace", "older");
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    rlimit small = limit;
    small.rlim_cur = 5000;
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string message = MessageOf([&] { Save(Path("trace"), std::string(100'000, 'x')); });
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    EXPECT_NE(message.find("Cannot save '" + Path("trace").string() + "': the disk is full"), std::string::npos)
        << message;
    EXPECT_EQ(Contents(), (Files{{"trace", "older"}}));
}

TEST_F(SaveBesideTest, WhatMayNotBeReplacedStays) {
    Write("there", "old");
    const auto save = [](
                          const fs::path& target, const std::function<void()>& meanwhile = [] {}) {
        return MessageOf([&] {
            SaveBeside(
                target,
                [&](const fs::path& beside) {
                    std::ofstream(beside) << "new";
                    meanwhile();
                },
                IfThere::Refuse);
        });
    };
    EXPECT_NE(save(Path("there")).find("there is such a file"), std::string::npos);
    EXPECT_NE(save(Path("late"), [&] { Write("late", "another's"); }).find("there is such a file"), std::string::npos);
    EXPECT_EQ(save(Path("free")), "");
    EXPECT_EQ(Contents(), (Files{{"there", "old"}, {"late", "another's"}, {"free", "new"}}));
}

TEST_F(SaveBesideTest, LongNamesAndDevices) {
    const std::string longest(255, 'n');
    std::string umlauts;
    while (umlauts.size() < 254) {
        umlauts += "\xC3\xA4";
    }
    for (const std::string& name : {longest, umlauts}) {
        EXPECT_EQ(MessageOf([&] { Save(Path(name), "x"); }), "") << name;
    }
    EXPECT_NE(MessageOf([&] { Save(Path(longest + "n"), "x"); }).find("the name is too long"), std::string::npos);
    EXPECT_EQ(Contents(), (Files{{longest, "x"}, {umlauts, "x"}}));
    Save("/dev/null", "x");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

}  // namespace
}  // namespace planview
