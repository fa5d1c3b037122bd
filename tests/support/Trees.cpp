#include "support/Trees.h"

#include "support/Process.h"

#include <gtest/gtest.h>
#include <sstream>

namespace
{

TCTreeBranch Read(std::istream& text)
{
    TCTreeBranch branch;
    short tag = 0;
    char kind = 0;
    for (std::string bytes; text >> std::ws && text.peek() != ']' && text >> tag && text.ignore() >> kind;) {
        std::uint64_t number = 0;
        if (kind == '[')
            branch.AppendChild({tag, Read(text)});
        else if (kind == '\'' && std::getline(text, bytes, '\''))
            branch.AppendChild({tag, TCTreeNode::Bytes(bytes.begin(), bytes.end())});
        else if (text >> number)
            branch.AppendChild({tag, kind == 'y'   ? TCTreeNode::Value(static_cast<std::uint8_t>(number))
                                     : kind == 'q' ? TCTreeNode::Value(static_cast<std::uint16_t>(number))
                                     : kind == 'u' ? TCTreeNode::Value(static_cast<std::uint32_t>(number))
                                                   : number});
    }
    text.ignore(); // the bracket
    return branch;
}

} // namespace

std::string Show(const TCTreeBranch& branch)
{
    std::string text;
    for (const TCTreeNode& node : branch.GetChildren()) {
        text += (text.empty() ? "" : " ") + std::to_string(node.tag) + ':';
        const auto show = [&text](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, TCTreeBranch>)
                text += '[' + Show(held) + ']';
            else if constexpr (std::is_same_v<Held, TCTreeNode::Bytes>)
                text += '\'' + std::string(held.begin(), held.end()) + '\'';
            else
                text += "yq.u...t"[sizeof held - 1] + std::to_string(held);
        };
        std::visit(show, node.value);
    }
    return text;
}

TCTreeBranch Branch(const std::string& text)
{
    std::istringstream stream(text);
    return Read(stream);
}

void ExpectTalk(const std::string& name, const std::function<std::string(const std::string& said)>& answer)
{
    const std::string expected = ReadFile(TALKS_PATH "/" + name);
    std::istringstream lines(expected);
    std::string talk;
    for (std::string line; std::getline(lines, line);)
        if (line.rfind("> ", 0) == 0)
            talk += line + "\n" + answer(line.substr(2)) + "\n";
    EXPECT_EQ(talk, expected);
}
