#include "host/messaging/MessageCodec.h"

#include <cerrno>
#include <string>
#include <system_error>

namespace host
{
namespace
{

constexpr const char* kBranch = "a(nv)";
constexpr int kMaxDepth = 16;      // valid trees have three levels
constexpr int kMaxNodes = 100'000; // a menu of 10,000 items has 60,000

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
    static constexpr const char* types[] = {"y", "q", "u", "t", "ay", kBranch};
    const char* const type = types[node.value.index()];
    Checked(sd_bus_message_open_container(message, 'v', type));
    const auto append = [&](const auto& held) {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, TCTreeBranch>)
            AppendBranch(message, held);
        else if constexpr (std::is_same_v<Held, TCTreeNode::Bytes>)
            Checked(sd_bus_message_append_array(message, 'y', held.data(), held.size()));
        else
            Checked(sd_bus_message_append_basic(message, type[0], &held));
    };
    std::visit(append, node.value);
    Checked(sd_bus_message_close_container(message));
}

// Reads variants. The number of nodes is limited because a node takes many times the memory of a short value.
class NodeReader
{
public:
    explicit NodeReader(sd_bus_message* message) : m_message(message) {}

    TCTreeNode::Value ReadVariant(int depth)
    {
        if (++m_nodes > kMaxNodes)
            Checked(-EMSGSIZE);
        const char* type = nullptr;
        Checked(sd_bus_message_peek_type(m_message, nullptr, &type));
        const std::string contents = type == nullptr ? "" : type;
        Checked(sd_bus_message_enter_container(m_message, 'v', contents.c_str()));
        TCTreeNode::Value value = m_ReadContents(contents, depth);
        Checked(sd_bus_message_exit_container(m_message));
        return value;
    }

private:
    template <class Number> Number m_ReadPlain(char type)
    {
        Number number{};
        Checked(sd_bus_message_read_basic(m_message, type, &number));
        return number;
    }

    TCTreeNode::Value m_ReadContents(const std::string& type, int depth)
    {
        if (type == "y")
            return m_ReadPlain<std::uint8_t>('y');
        if (type == "q")
            return m_ReadPlain<std::uint16_t>('q');
        if (type == "u")
            return m_ReadPlain<std::uint32_t>('u');
        if (type == "t")
            return m_ReadPlain<std::uint64_t>('t');
        if (type == "ay" && depth > 0)
            return m_ReadBytes();
        if (type == kBranch && depth < kMaxDepth)
            return m_ReadBranch(depth);
        throw std::system_error(EBADMSG, std::generic_category());
    }

    TCTreeNode::Bytes m_ReadBytes()
    {
        const void* bytes = nullptr;
        std::size_t size = 0;
        const int result = sd_bus_message_read_array(m_message, 'y', &bytes, &size);
        if (result == -EOPNOTSUPP) // the peer's CPU has the other byte order
            return m_ReadBytesOneByOne();
        Checked(result);
        const auto* first = static_cast<const unsigned char*>(bytes);
        return {first, first + size};
    }

    TCTreeNode::Bytes m_ReadBytesOneByOne()
    {
        TCTreeNode::Bytes bytes;
        Checked(sd_bus_message_enter_container(m_message, 'a', "y"));
        for (unsigned char byte{}; Checked(sd_bus_message_read_basic(m_message, 'y', &byte)) > 0;)
            bytes.push_back(byte);
        Checked(sd_bus_message_exit_container(m_message));
        return bytes;
    }

    TCTreeBranch m_ReadBranch(int depth)
    {
        TCTreeBranch branch;
        Checked(sd_bus_message_enter_container(m_message, 'a', "(nv)"));
        while (Checked(sd_bus_message_enter_container(m_message, 'r', "nv")) > 0) {
            const auto tag = m_ReadPlain<std::int16_t>('n');
            branch.AppendChild({tag, ReadVariant(depth + 1)});
            Checked(sd_bus_message_exit_container(m_message));
        }
        Checked(sd_bus_message_exit_container(m_message));
        return branch;
    }

    sd_bus_message* m_message;
    int m_nodes = 0;
};

} // namespace

int Checked(int result)
{
    if (result < 0)
        throw std::system_error(-result, std::generic_category());
    return result;
}

Bus NewBus()
{
    sd_bus* bus = nullptr;
    Checked(sd_bus_new(&bus));
    return Bus(bus);
}

int WaitForBus(sd_bus* bus, std::uint64_t microseconds)
{
    const int result = sd_bus_wait(bus, microseconds);
    return result == -EINTR ? 0 : result;
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
    NodeReader reader(message);
    Checked(sd_bus_message_enter_container(message, 'a', "v"));
    while (Checked(sd_bus_message_at_end(message, 0)) == 0)
        values.emplace_back(static_cast<short>(values.size()), reader.ReadVariant(0));
    Checked(sd_bus_message_exit_container(message));
    return values;
}

} // namespace host
