// The message tree, and the classes that write objects into it and read them from it.
#pragma once

#include "tvs-api-internal/Marshalable.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

class TCTreeNode;
class TILengthInfoContainer;

/// A node with an ordered list of children.
class TCTreeBranch
{
public:
    void AppendChild(TCTreeNode node);
    std::vector<TCTreeNode>& GetChildren();
    const std::vector<TCTreeNode>& GetChildren() const;

private:
    std::vector<TCTreeNode> m_children;
};

/// One value of a branch: a plain number of 1, 2, 4 or 8 bytes, a length array of bytes, or a sub-branch.
class TCTreeNode
{
public:
    using Bytes = std::vector<unsigned char>;
    using Value = std::variant<std::uint8_t, std::uint16_t, std::uint32_t, std::uint64_t, Bytes, TCTreeBranch>;

    TCTreeNode(short nodeTag, Value nodeValue);

    /// The number of elements of that size in bytes; 0 for a branch.
    std::size_t GetElementCount(std::size_t elementSize) const;

    short tag; ///< position in the branch; -1 for an element of a container
    Value value;
    bool mismatched = false; ///< an element could not be filled from this node
};

/// Makes nodes from plain values and fills plain values from nodes.
class DefaultNodeCreator
{
public:
    virtual ~DefaultNodeCreator() = default;
    /// A node with `count` elements of `size` bytes from `element`; null if `count` is not 1 or the size is not valid.
    virtual std::unique_ptr<TCTreeNode> CreateNode(void* element, std::size_t size, short tag, int count);
    /// Fills the element from the node. If the node does not match, writes nothing and returns false.
    virtual bool FillElement(void* element, std::size_t elementSize, std::size_t byteSize, TCTreeNode& node);
    /// Whether one node can hold several elements.
    virtual bool HasCountedElements() const;
    /// 7 and 8: the elements are passed to ReleaseElement before their container is cleared.
    virtual int GetKind() const;
    virtual void ReleaseElement(void* element);
};

/// The same for marshalable objects: `element` points to a TIMarshalable, and a node is one sub-branch. A node that
/// does not match its element is marked, because containers never fail.
class TCMarshalableNodeCreator : public DefaultNodeCreator
{
public:
    std::unique_ptr<TCTreeNode> CreateNode(void* element, std::size_t size, short tag, int count) override;
    bool FillElement(void* element, std::size_t elementSize, std::size_t byteSize, TCTreeNode& node) override;
    int GetKind() const override;
};

/// Reads or writes the values of one object in a branch, in order. After the first failure it does nothing.
class TCTreeFormatter
{
public:
    explicit TCTreeFormatter(TCTreeBranch& branch);
    virtual ~TCTreeFormatter() = default;
    virtual bool Extract();
    virtual bool FillOut();

protected:
    TCTreeBranch& m_branch;
    DefaultNodeCreator m_defaultCreator;
    TCMarshalableNodeCreator m_marshalableCreator;
    bool m_ok = true;
};

/// Object into branch.
class TCClassToTreeFormatter : public TCTreeFormatter
{
public:
    using TCTreeFormatter::TCTreeFormatter;
    /// Width in bytes: 1, 2, 4 or 8.
    void PushValue(short tag, int width, void* value);
    void PushLengthArray(short tag, int length, void* data, TILengthInfoContainer* lengthInfo);
    void PushMarshalableClass(short tag, TIMarshalable* object);
    /// Ends the writing; returns true if every push succeeded.
    bool Extract() override;

private:
    void m_Append(const std::unique_ptr<TCTreeNode>& node);
};

/// Branch into object. Each push fills its value from the next child.
class TCTreeToClassFormatter : public TCTreeFormatter
{
public:
    using TCTreeFormatter::TCTreeFormatter;
    void PushValue(short tag, int width, void* value);
    /// `data` points to at least `length` bytes.
    void PushLengthArray(short tag, int length, void* data, TILengthInfoContainer* lengthInfo);
    void PushMarshalableClass(short tag, TIMarshalable* object);
    /// Ends the reading; returns true if every push succeeded and no child is left.
    bool FillOut() override;

private:
    TCTreeNode* m_Next(short tag);
    std::size_t m_next = 0;
};
