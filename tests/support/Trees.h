// Message trees as text.
#pragma once

#include "tvs-api-internal/Tree.h"

#include <string>

/// Each value behind its tag: a plain one behind the letter of its width (y, q, u, t for 1, 2, 4, 8 bytes), bytes in
/// quotes, a branch in brackets.
inline std::string Show(const std::vector<TCTreeNode>& values)
{
    std::string text;
    for (const TCTreeNode& node : values) {
        text += (text.empty() ? "" : " ") + std::to_string(node.tag) + ':';
        if (const auto* branch = std::get_if<TCTreeBranch>(&node.value))
            text += '[' + Show(branch->GetChildren()) + ']';
        else if (const auto* bytes = std::get_if<TCTreeNode::Bytes>(&node.value))
            text += '"' + std::string(bytes->begin(), bytes->end()) + '"';
        else
            std::visit(
                [&text](const auto& held) {
                    if constexpr (std::is_integral_v<std::decay_t<decltype(held)>>)
                        text += "yq.u...t"[sizeof held - 1] + std::to_string(held);
                },
                node.value);
    }
    return text;
}
