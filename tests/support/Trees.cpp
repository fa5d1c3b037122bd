#include "support/Trees.h"

#include <algorithm>
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
        else if (text >> number && kKinds.find(kind) != std::string::npos) {
            const unsigned width = 1U << kKinds.find(kind);
            branch.AppendChild(*DefaultNodeCreator().CreateNode(LowerBytes(number, width), width, tag, 1));
        }
    }
    text.ignore(); // the closing bracket
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

void NumberTags(TCTreeBranch& values)
{
    short tag = 0;
    for (TCTreeNode& value : values.GetChildren())
        value.tag = tag++;
}

static bool Fits(const TCTreeNode& node, int tag, char shape)
{
    if (node.tag != tag || kKinds.find(shape) != std::string::npos)
        return node.tag == tag && node.value.index() == kKinds.find(shape);
    const auto* branch = std::get_if<TCTreeBranch>(&node.value);
    const std::vector<TCTreeNode> parts = branch == nullptr ? std::vector<TCTreeNode>() : branch->GetChildren();
    if (shape == 'L')
        return branch != nullptr &&
               std::all_of(parts.begin(), parts.end(), [](auto& part) { return Fits(part, -1, 'I'); });
    if (shape == 'I')
        return Fit(parts, "Tyu");
    if (Fit(parts, "u"))
        return std::get<std::uint32_t>(parts[0].value) == 0;
    const auto* bytes = parts.size() == 2 ? std::get_if<TCTreeNode::Bytes>(&parts[1].value) : nullptr;
    return bytes != nullptr && parts[1].tag == 1 && Fits(parts[0], 0, 'u') && !bytes->empty() &&
           std::get<std::uint32_t>(parts[0].value) == bytes->size();
}

bool Fit(const std::vector<TCTreeNode>& values, const std::string& shapes)
{
    bool fit = values.size() == shapes.size();
    for (std::size_t i = 0; fit && i < shapes.size(); ++i)
        fit = Fits(values[i], static_cast<int>(i), shapes[i]);
    return fit;
}

void NormaliseFlags(TCTreeNode& list)
{
    for (TCTreeNode& item : std::get<TCTreeBranch>(list.value).GetChildren()) {
        auto& flag = std::get<std::uint8_t>(std::get<TCTreeBranch>(item.value).GetChildren()[1].value);
        flag = flag != 0;
    }
}
