// SPDX-License-Identifier: MIT
#include "planbook/TestFolder.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

std::filesystem::path TestFolder::Path(std::string_view name) const {
    return std::filesystem::path(folder_.path().toStdString()) / name;
}

std::filesystem::path TestFolder::Write(std::string_view name, std::string_view contents) const {
    std::ofstream(Path(name), std::ios::binary) << contents;
    return Path(name);
}

std::map<std::string, std::string> TestFolder::Contents() const {
    std::map<std::string, std::string> contents;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path().toStdString())) {
        contents[entry.path().filename()] = entry.is_regular_file() ? ReadFile(entry.path()) : "(no file)";
    }
    return contents;
}

std::string ReadFile(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

namespace {

void RunAll(const std::filesystem::path& file, const QStringList& statements) {
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "ChangeBook");
        database.setDatabaseName(QString::fromStdString(file.string()));
        ASSERT_TRUE(database.open());
        for (const QString& statement : statements) {
            QSqlQuery query(database);
            ASSERT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
        }
    }
    QSqlDatabase::removeDatabase("ChangeBook");
}

QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

void ChangeBook(const std::filesystem::path& file, std::string_view statements) {
    RunAll(file, ToQt(statements).split(';', Qt::SkipEmptyParts));
}

void RunOnBook(const std::filesystem::path& file, std::string_view statement) {
    RunAll(file, {ToQt(statement)});
}
