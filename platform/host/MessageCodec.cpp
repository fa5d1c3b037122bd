#include "MessageCodec.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <system_error>

namespace host
{
namespace
{

constexpr const char* kBranch = "a(nv)";
constexpr int kDeepest = 16; // honest trees have three levels

void AppendVariant(sd_bus_message* message, const TCTreeNode& node);

void AppendBranch(sd_bus_message* message, const TCTreeBranch& branch)
{
    Checked(sd_bus_message_open_container(message, 'a', "(nv)"));
    for (const TCTreeNode& child : branch.GetChildren()) {
        Checked(sd_bus_message_open_container(message, 'r', "nv"));
        Checked(sd_bus_message_append_basic(message, 'n', &child.tag));
        AppendVariant(message, child);
        Checked(sd_bus_message_close_container(message));
    }
    Checked(sd_bus_message_close_container(message));
}

void AppendVariant(sd_bus_message* message, const TCTreeNode& node)
{
    const auto append = [message](const auto& held, const char* type) {
        Checked(sd_bus_message_open_container(message, 'v', type));
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, TCTreeBranch>)
            AppendBranch(message, held);
        else if constexpr (std::is_same_v<Held, TCTreeNode::Bytes>)
            Checked(sd_bus_message_append_array(message, 'y', held.data(), held.size()));
        else
            Checked(sd_bus_message_append_basic(message, type[0], &held));
        Checked(sd_bus_message_close_container(message));
    };
    static constexpr const char* types[] = {"y", "q", "u", "t", "ay", kBranch};
    std::visit([&](const auto& held) { append(held, types[node.value.index()]); }, node.value);
}

template <class Number> Number ReadPlain(sd_bus_message* message, char type)
{
    Number number{};
    Checked(sd_bus_message_read_basic(message, type, &number));
    return number;
}

TCTreeNode::Value ReadVariant(sd_bus_message* message, int depth);

TCTreeBranch ReadBranch(sd_bus_message* message, int depth)
{
    TCTreeBranch branch;
    Checked(sd_bus_message_enter_container(message, 'a', "(nv)"));
    while (Checked(sd_bus_message_enter_container(message, 'r', "nv")) > 0) {
        const auto tag = ReadPlain<std::int16_t>(message, 'n');
        branch.AppendChild({tag, ReadVariant(message, depth + 1)});
        Checked(sd_bus_message_exit_container(message));
    }
    Checked(sd_bus_message_exit_container(message));
    return branch;
}

TCTreeNode::Value ReadContents(sd_bus_message* message, const char* type, int depth)
{
    if (std::strcmp(type, "y") == 0)
        return ReadPlain<std::uint8_t>(message, 'y');
    if (std::strcmp(type, "q") == 0)
        return ReadPlain<std::uint16_t>(message, 'q');
    if (std::strcmp(type, "u") == 0)
        return ReadPlain<std::uint32_t>(message, 'u');
    if (std::strcmp(type, "t") == 0)
        return ReadPlain<std::uint64_t>(message, 't');
    if (std::strcmp(type, "ay") == 0 && depth > 0) {
        const void* bytes = nullptr;
        std::size_t size = 0;
        Checked(sd_bus_message_read_array(message, 'y', &bytes, &size));
        const auto* first = static_cast<const unsigned char*>(bytes);
        return TCTreeNode::Bytes(first, first + size);
    }
    if (std::strcmp(type, kBranch) == 0 && depth < kDeepest)
        return ReadBranch(message, depth);
    return Checked(-EBADMSG), TCTreeNode::Value();
}

TCTreeNode::Value ReadVariant(sd_bus_message* message, int depth)
{
    const char* type = nullptr;
    Checked(sd_bus_message_peek_type(message, nullptr, &type));
    const std::string contents = type == nullptr ? "" : type;
    Checked(sd_bus_message_enter_container(message, 'v', contents.c_str()));
    TCTreeNode::Value value = ReadContents(message, contents.c_str(), depth);
    Checked(sd_bus_message_exit_container(message));
    return value;
}

} // namespace

int Checked(int result)
{
    if (result < 0)
        throw std::system_error(-result, std::generic_category());
    return result;
}

void AppendValues(sd_bus_message* message, const std::vector<TCTreeNode>& values)
{
    Checked(sd_bus_message_open_container(message, 'a', "v"));
    for (const TCTreeNode& value : values)
        AppendVariant(message, value);
    Checked(sd_bus_message_close_container(message));
}

std::vector<TCTreeNode> ReadValues(sd_bus_message* message)
{
    std::vector<TCTreeNode> values;
    Checked(sd_bus_message_enter_container(message, 'a', "v"));
    while (Checked(sd_bus_message_at_end(message, 0)) == 0)
        values.emplace_back(static_cast<short>(values.size()), ReadVariant(message, 0));
    Checked(sd_bus_message_exit_container(message));
    return values;
}

} // namespace host
