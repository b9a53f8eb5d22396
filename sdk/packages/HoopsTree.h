#pragma once

#include <string>
#include <vector>

namespace HOOPSPACKAGE {

/// The trees by which parts of a loaded model are shown and hidden.
enum class HoopsTreeKind { HTT_FLOOR_COMP, HTT_SYS_TREE, HTT_SGD_TREE, HTT_COMP_TREE, none };

/// One row of such a tree.
struct HoopsTreeNode {
    std::wstring id;
    std::wstring name;
    bool shown = true;
    std::vector<HoopsTreeNode> children;
};

}  // namespace HOOPSPACKAGE
