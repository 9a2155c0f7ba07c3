// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QWidget>

#include <benchmark/benchmark.h>

namespace planview::bench {

/// Counts how often the watched widget paints.
class PaintCounter final : public QObject {
public:
    explicit PaintCounter(QWidget& watched) { watched.installEventFilter(this); }
    [[nodiscard]] benchmark::IterationCount Count() const noexcept { return count_; }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        count_ += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    benchmark::IterationCount count_ = 0;
};

}  // namespace planview::bench
