#include "debugutil/MenuItem.h"

#include "tvs-api-internal/Diagnostics.h"

template class TCMarshalableOneDimensionContainer<std::vector<TSMenuItem>, TSMenuItem>;

constexpr const char* kStringSource = "/usr/include/tvs-api-internal/MarshalableString"; // for assertions

bool TSMenuItem::ClassToTree(TCTreeBranch& branch)
{
    TCClassToTreeFormatter formatter(branch);
    TCMarshalableString name(&m_name);
    formatter.PushMarshalableClass(0, &name);
    formatter.PushValue(1, 1, &m_state);
    formatter.PushValue(2, 4, &m_id);
    return formatter.Extract();
}

bool TSMenuItem::TreeToClass(TCTreeBranch& branch)
{
    TCTreeToClassFormatter formatter(branch);
    TCMarshalableString name(&m_name);
    auto state = static_cast<unsigned char>(m_state); // the received byte may not be a valid bool
    formatter.PushMarshalableClass(0, &name);
    formatter.PushValue(1, 1, &state);
    formatter.PushValue(2, 4, &m_id);
    m_state = state != 0;
    return formatter.FillOut();
}

bool TCMarshalableString::GetSizeOfMarshalled(unsigned long& size)
{
    if (m_data == nullptr)
        return false;
    size = m_data->size();
    return true;
}

bool TCMarshalableString::ClassToTree(TCTreeBranch& branch)
{
    if (m_data == nullptr) {
        _TCApiAssert("m_data", kStringSource, 72, nullptr);
        return false;
    }
    TCClassToTreeFormatter formatter(branch);
    auto length = static_cast<std::uint32_t>(m_data->size());
    formatter.PushValue(0, 4, &length);
    if (length != 0)
        formatter.PushLengthArray(1, static_cast<int>(length), m_data->data(), nullptr);
    return formatter.Extract();
}

bool TCMarshalableString::TreeToClass(TCTreeBranch& branch)
{
    if (m_data == nullptr) {
        _TCApiAssert("m_data", kStringSource, 93, nullptr);
        return false;
    }
    TCTreeToClassFormatter formatter(branch);
    std::uint32_t length = 0;
    formatter.PushValue(0, 4, &length);
    if (length == 0) {
        m_data->reserve(1); // keeps the text
        return formatter.FillOut();
    }
    // Compares the length with the number of bytes first, so that a wrong one allocates nothing.
    const auto& children = branch.GetChildren();
    if (children.size() != 2 || children[1].GetElementCount(1) != length)
        return false;
    std::string received(length, '\0');
    formatter.PushLengthArray(1, static_cast<int>(length), received.data(), nullptr);
    if (!formatter.FillOut())
        return false;
    *m_data = std::move(received);
    return true;
}
