// Values of the remote debug menu: strings, items and lists of items.
#pragma once

#include "tvs-api-internal/Tree.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// One item of the remote debug menu. In a branch: 0 the name, 1 the state (1 byte), 2 the number (4 bytes).
class TSMenuItem : public TCMarshalable
{
public:
    void setName(const std::string& name) { m_name = name; }
    const std::string& getName() const { return m_name; }
    void setState(bool state) { m_state = state; }
    bool getState() const { return m_state; }
    void setID(std::uint32_t id) { m_id = id; }
    std::uint32_t getID() const { return m_id; }

    bool ClassToTree(TCTreeBranch& branch) override;
    bool TreeToClass(TCTreeBranch& branch) override;

private:
    std::string m_name;
    bool m_state = false;
    std::uint32_t m_id = 0;
};

/// Marshals a string that it does not own. In a branch: 0 the length (4 bytes), 1 the bytes, left out if empty.
class TCMarshalableString : public TCMarshalable
{
public:
    explicit TCMarshalableString(std::string* data) : m_data(data) {}

    bool GetSizeOfMarshalled(unsigned long& size) override;
    bool ClassToTree(TCTreeBranch& branch) override;
    /// A string of length 0 does not change the bound string.
    bool TreeToClass(TCTreeBranch& branch) override;

private:
    std::string* m_data;
};

/// Marshals a sequence of marshalable elements, one child per element. Owns the node creator, but not the sequence.
/// Never fails: skips an element that cannot be written, and keeps an element that was read only in part.
template <class Container, class Element> class TCMarshalableOneDimensionContainer : public TCMarshalable
{
public:
    TCMarshalableOneDimensionContainer(Container* container, std::unique_ptr<TCMarshalableNodeCreator> nodeCreator)
        : m_pContainer(container), m_pNodeCreator(std::move(nodeCreator))
    {
    }

    int GetMarshalableStorageType() override { return 1; }

    bool ClassToTree(TCTreeBranch& branch) override
    {
        if (m_pContainer == nullptr)
            return true;
        for (Element& element : *m_pContainer)
            if (const auto node = m_pNodeCreator->CreateNode(m_AddressOf(element), sizeof(Element), -1, 1))
                branch.AppendChild(std::move(*node));
        return true;
    }

    bool TreeToClass(TCTreeBranch& branch) override
    {
        if (m_pContainer == nullptr)
            return true;
        const int kind = m_pNodeCreator->GetKind();
        if (kind == 7 || kind == 8)
            for (Element& element : *m_pContainer)
                m_pNodeCreator->ReleaseElement(m_AddressOf(element));
        m_pContainer->clear();
        for (TCTreeNode& child : branch.GetChildren()) {
            std::size_t byteSize = sizeof(Element);
            if (m_pNodeCreator->HasCountedElements())
                byteSize *= child.GetElementCount(sizeof(Element));
            Element element;
            m_pNodeCreator->FillElement(m_AddressOf(element), sizeof(Element), byteSize, child);
            m_pContainer->push_back(element);
        }
        return true;
    }

private:
    // Node creators take elements as marshalable objects.
    static TIMarshalable* m_AddressOf(Element& element) { return &element; }

    Container* m_pContainer;
    std::unique_ptr<TCMarshalableNodeCreator> m_pNodeCreator;
};

using TCMarshalableMenuItems = TCMarshalableOneDimensionContainer<std::vector<TSMenuItem>, TSMenuItem>;
extern template class TCMarshalableOneDimensionContainer<std::vector<TSMenuItem>, TSMenuItem>;
