// SPDX-License-Identifier: MIT
#include "trace/Failures.h"

#include <utility>

#include "automation/BusyScope.h"
#include "trace/ErrorTrap.h"

namespace planview {

namespace {

thread_local Failures* current = nullptr;

}  // namespace

void Failures::Note(Failure failure) {
    if (!telling_ && !listeners_.IsEmpty()) {
        noted_.push_back(std::move(failure));
    }
}

void Failures::Tell() noexcept {
    if (telling_ || noted_.empty()) {
        return;
    }
    const BusyScope telling(telling_);
    const std::vector<Failure> noted = std::exchange(noted_, {});
    for (const Failure& failure : noted) {
        listeners_.TellEach(failure);
    }
}

void Failures::Abandon() noexcept {
    listeners_.Clear();
    noted_.clear();
}

FailureScope::FailureScope(std::shared_ptr<Failures> failures) noexcept
    : failures_(std::move(failures)), before_(std::exchange(current, failures_ ? failures_.get() : current)) {}

FailureScope::~FailureScope() {
    current = before_;
    if (failures_) {
        failures_->Tell();
    }
}

void FailureScope::Note(const Failure& failure) noexcept {
    if (current) {
        ResumeNext([&] { current->Note(failure); });
    }
}

}  // namespace planview
