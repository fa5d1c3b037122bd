#include "support/Trees.h"

#include "support/Process.h"

#include <gtest/gtest.h>
#include <sstream>

static const std::string kKinds = "yqut";

void* LowerBytes(std::uint64_t& number, unsigned width)
{
    const bool lowerFirst = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;
    return reinterpret_cast<char*>(&number) + (lowerFirst ? 0 : sizeof number - width);
}

TCTreeBranch Branch(std::istream&& text)
{
    TCTreeBranch branch;
    short tag = 0;
    char kind = 0;
    for (std::string bytes; text >> std::ws && text.peek() != ']' && text >> tag && text.ignore() >> kind;) {
        std::uint64_t number = 0;
        if (kind == '[')
            branch.AppendChild({tag, Branch(std::move(text))});
        else if (kind == '\'' && std::getline(text, bytes, '\''))
            branch.AppendChild({tag, TCTreeNode::Bytes(bytes.begin(), bytes.end())});
        else if (text >> number) {
            const unsigned width = 1U << kKinds.find(kind);
            branch.AppendChild(*DefaultNodeCreator().CreateNode(LowerBytes(number, width), width, tag, 1));
        }
    }
    text.ignore(); // the bracket
    return branch;
}

std::string Show(const TCTreeBranch& branch)
{
    std::string text;
    for (const TCTreeNode& node : branch.GetChildren()) {
        text += (text.empty() ? "" : " ") + std::to_string(node.tag) + ':';
        const auto show = [&](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, TCTreeBranch>)
                text += '[' + Show(held) + ']';
            else if constexpr (std::is_same_v<Held, TCTreeNode::Bytes>)
                text += '\'' + std::string(held.begin(), held.end()) + '\'';
            else
                text += kKinds[node.value.index()] + std::to_string(held);
        };
        std::visit(show, node.value);
    }
    return text;
}

void ExpectTalk(const std::string& name, const std::function<std::string(const std::string& said)>& answer)
{
    const std::string expected = ReadFile(TALKS_PATH "/" + name);
    std::istringstream lines(expected);
    std::string talk, last;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("> ", 0) != 0)
            continue;
        const std::string told = answer(line.substr(2)) + "\n";
        talk += (told == last ? "" : last) + line + "\n";
        last = told;
    }
    EXPECT_EQ(talk + last, expected);
}
