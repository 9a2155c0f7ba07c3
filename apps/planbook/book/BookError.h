// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace planbook {

/// An operation on a book or on its source that failed and changed nothing.
/// `what()` is for the user: what went wrong, where, and what to do now.
class BookError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace planbook
