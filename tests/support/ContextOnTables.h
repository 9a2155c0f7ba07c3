// SPDX-License-Identifier: MIT
#pragma once

#include "control/ControlContext.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

namespace planview::test {

/// All that a control is made of, without the control, over tables that a test fills before it builds.
struct ContextOnTables {
    explicit ContextOnTables(const Platform& platform) : context(platform) {}

    /// Hands all tables over and builds the grid.
    void Build() {
        tables.GiveTo(context.shared.tables);
        context.grid.construction.CreateFromTables();
    }

    Tables tables;
    ControlContext context;
};

/// The same as the fixture of a test.
class ContextTest : public TracedTest, protected ContextOnTables {
protected:
    ContextTest() : ContextOnTables(platform.Interfaces()) {}
};

}  // namespace planview::test
