// SPDX-License-Identifier: MIT
#pragma once

namespace planview {

class GridView;

/// Makes every GridView known to assistive tools as a table: cells with their texts, named column and row headings.
void installGridAccessibility();

enum class GridAccessibleChange { Layout, CurrentCell };

/// Tells assistive tools, where there are any, that the view shows something else now.
void notifyGridAccessibility(GridView& view, GridAccessibleChange change);

}  // namespace planview
