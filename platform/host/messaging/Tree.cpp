// The message tree and its formatters.
#include "tvs-api-internal/Tree.h"

#include <cstring>
#include <utility>

namespace
{

template <class Number> TCTreeNode MakePlain(short tag, const void* value)
{
    Number number;
    std::memcpy(&number, value, sizeof number);
    return {tag, number};
}

} // namespace

bool TCMarshalable::GetSizeOfMarshalled(unsigned long&) { return false; }
bool TCMarshalable::ClassToTree(TCTreeBranch&) { return false; }
bool TCMarshalable::TreeToClass(TCTreeBranch&) { return false; }
int TCMarshalable::GetMarshalableStorageType() { return 0; }
bool TCMarshalable::Store(TCMessageBuffer*) { return false; }
bool TCMarshalable::Load(TCMessageBuffer*) { return false; }
TCTreeNode::TCTreeNode(short nodeTag, Value nodeValue) : tag(nodeTag), value(std::move(nodeValue)) {}

std::size_t TCTreeNode::GetElementCount(std::size_t elementSize) const
{
    return std::visit(
        [elementSize](const auto& held) -> std::size_t {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, TCTreeBranch>)
                return 0;
            else if constexpr (std::is_same_v<Held, Bytes>)
                return held.size() / elementSize;
            else
                return sizeof held / elementSize;
        },
        value);
}

void TCTreeBranch::AppendChild(TCTreeNode node) { m_children.push_back(std::move(node)); }
std::vector<TCTreeNode>& TCTreeBranch::GetChildren() { return m_children; }
const std::vector<TCTreeNode>& TCTreeBranch::GetChildren() const { return m_children; }

std::unique_ptr<TCTreeNode> DefaultNodeCreator::CreateNode(void* element, std::size_t size, short tag, int count)
{
    if (count != 1)
        return nullptr;
    switch (size) {
    case 1:
        return std::make_unique<TCTreeNode>(MakePlain<std::uint8_t>(tag, element));
    case 2:
        return std::make_unique<TCTreeNode>(MakePlain<std::uint16_t>(tag, element));
    case 4:
        return std::make_unique<TCTreeNode>(MakePlain<std::uint32_t>(tag, element));
    case 8:
        return std::make_unique<TCTreeNode>(MakePlain<std::uint64_t>(tag, element));
    default:
        return nullptr;
    }
}

bool DefaultNodeCreator::FillElement(void* element, std::size_t elementSize, std::size_t byteSize, TCTreeNode& node)
{
    return std::visit(
        [&](const auto& held) {
            if constexpr (std::is_integral_v<std::decay_t<decltype(held)>>) {
                if (sizeof held != elementSize || byteSize != elementSize)
                    return false;
                std::memcpy(element, &held, sizeof held);
                return true;
            } else {
                return false;
            }
        },
        node.value);
}

bool DefaultNodeCreator::HasCountedElements() const { return false; }
int DefaultNodeCreator::GetKind() const { return 0; }
void DefaultNodeCreator::ReleaseElement(void*) {}

std::unique_ptr<TCTreeNode> TCMarshalableNodeCreator::CreateNode(void* element, std::size_t, short tag, int count)
{
    TCTreeBranch branch;
    if (count != 1 || !static_cast<TIMarshalable*>(element)->ClassToTree(branch))
        return nullptr;
    return std::make_unique<TCTreeNode>(tag, std::move(branch));
}

bool TCMarshalableNodeCreator::FillElement(void* element, std::size_t, std::size_t, TCTreeNode& node)
{
    auto* branch = std::get_if<TCTreeBranch>(&node.value);
    // Only elements of containers are filled here; their tag is -1.
    node.mismatched =
        node.tag != -1 || branch == nullptr || !static_cast<TIMarshalable*>(element)->TreeToClass(*branch);
    return !node.mismatched;
}

int TCMarshalableNodeCreator::GetKind() const { return 1; }
TCTreeFormatter::TCTreeFormatter(TCTreeBranch& branch) : m_branch(branch) {}
bool TCTreeFormatter::Extract() { return true; }
bool TCTreeFormatter::FillOut() { return true; }

void TCClassToTreeFormatter::m_Append(const std::unique_ptr<TCTreeNode>& node)
{
    if (node)
        m_branch.AppendChild(std::move(*node));
    else
        m_ok = false;
}

void TCClassToTreeFormatter::PushValue(short tag, int width, void* value)
{
    if (m_ok)
        m_Append(m_defaultCreator.CreateNode(value, static_cast<std::size_t>(width), tag, 1));
}

void TCClassToTreeFormatter::PushLengthArray(short tag, int length, void* data, TILengthInfoContainer*)
{
    m_ok = m_ok && length >= 0;
    if (!m_ok)
        return;
    const auto* bytes = static_cast<const unsigned char*>(data);
    m_branch.AppendChild({tag, TCTreeNode::Bytes(bytes, bytes + length)});
}

void TCClassToTreeFormatter::PushMarshalableClass(short tag, TIMarshalable* object)
{
    if (m_ok)
        m_Append(m_marshalableCreator.CreateNode(object, sizeof *object, tag, 1));
}

bool TCClassToTreeFormatter::Extract() { return m_ok; }

TCTreeNode* TCTreeToClassFormatter::m_Next(short tag)
{
    auto& children = m_branch.GetChildren();
    if (!m_ok || m_next == children.size() || children[m_next].tag != tag)
        return nullptr;
    return &children[m_next++];
}

void TCTreeToClassFormatter::PushValue(short tag, int width, void* value)
{
    TCTreeNode* node = m_Next(tag);
    const auto size = static_cast<std::size_t>(width);
    m_ok = node != nullptr && m_defaultCreator.FillElement(value, size, size, *node);
}

void TCTreeToClassFormatter::PushLengthArray(short tag, int length, void* data, TILengthInfoContainer*)
{
    TCTreeNode* node = m_Next(tag);
    const auto* bytes = node == nullptr ? nullptr : std::get_if<TCTreeNode::Bytes>(&node->value);
    m_ok = bytes != nullptr && bytes->size() == static_cast<std::size_t>(length);
    if (m_ok && length > 0)
        std::memcpy(data, bytes->data(), bytes->size());
}

void TCTreeToClassFormatter::PushMarshalableClass(short tag, TIMarshalable* object)
{
    TCTreeNode* node = m_Next(tag);
    auto* branch = node == nullptr ? nullptr : std::get_if<TCTreeBranch>(&node->value);
    m_ok = branch != nullptr && object->TreeToClass(*branch);
}

bool TCTreeToClassFormatter::FillOut() { return m_ok && m_next == m_branch.GetChildren().size(); }
