// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

namespace planbook {

/// The books that were open last, kept in the user's settings.
class RecentBooks : public QObject {
    Q_OBJECT

public:
    explicit RecentBooks(QObject* parent = nullptr) : QObject(parent) {}

    void add(const QString& file);
    /// The latest first; those that are no longer there are forgotten.
    [[nodiscard]] QStringList files() const;
    /// Fills the menu each time it opens.
    void attach(QMenu& menu);

Q_SIGNALS:
    void chosen(const QString& file);
};

}  // namespace planbook
