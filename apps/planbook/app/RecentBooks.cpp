// SPDX-License-Identifier: MIT
#include "app/RecentBooks.h"

#include <QFileInfo>
#include <QMenu>
#include <QSettings>
#include <algorithm>

namespace planbook {

namespace {

constexpr int MostBooks = 8;
constexpr const char* SettingsKey = "recentBooks";

QString caption(int number, const QString& file) {
    const QFileInfo info(file);
    QString name = info.completeBaseName() + "  –  " + info.path();
    name.replace("&", "&&");  // one alone marks a shortcut
    return "&" + QString::number(number) + "  " + name;
}

}  // namespace

void RecentBooks::add(const QString& file) {
    QStringList books = files();
    books.removeAll(file);
    books.prepend(file);
    QSettings().setValue(SettingsKey, QStringList(books.mid(0, MostBooks)));
}

QStringList RecentBooks::files() const {
    QStringList books = QSettings().value(SettingsKey).toStringList();
    books.erase(
        std::remove_if(books.begin(), books.end(), [](const QString& book) { return !QFileInfo::exists(book); }),
        books.end());
    return books;
}

void RecentBooks::attach(QMenu& menu) {
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] {
        menu.clear();
        int number = 0;
        for (const QString& book : files()) {
            menu.addAction(caption(++number, book), this, [this, book] { Q_EMIT chosen(book); });
        }
        if (number == 0) {
            menu.addAction("No books yet")->setEnabled(false);
        }
    });
}

}  // namespace planbook
