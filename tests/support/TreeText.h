// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "components/TreeControl.h"

namespace planview::test {

/// The keys of a tree: "A(B(C) D) E". Not for deep trees.
inline std::string TreeText(TreeNode first) {
    std::string text;
    for (TreeNode node = first; node; node = node.NextSibling()) {
        text += (text.empty() ? "" : " ") + node.Key();
        if (const TreeNode child = node.FirstChild()) {
            text += "(" + TreeText(child) + ")";
        }
    }
    return text;
}

inline std::string TreeText(TreeControl& tree) {
    return TreeText(tree.Nodes().FirstRoot());
}

}  // namespace planview::test
