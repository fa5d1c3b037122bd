// The message tree, and what writes objects into it and reads them back.
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

    /// How many elements of that many bytes the node holds: 0 for a branch.
    std::size_t GetElementCount(std::size_t elementSize) const;

    short tag; ///< number of the value in its branch; -1 for an element of a container
    Value value;
    bool mismatched = false; ///< an element could not be filled from this node
};

/// Makes nodes from plain values and fills plain values from nodes.
class DefaultNodeCreator
{
public:
    virtual ~DefaultNodeCreator() = default;
    /// A node with `count` (1) elements of `size` bytes from `element`, or none if that cannot be.
    virtual std::unique_ptr<TCTreeNode> CreateNode(void* element, std::size_t size, short tag, int count);
    /// Fills the element from the node; false, and nothing is written, if the node has another form.
    virtual bool FillElement(void* element, std::size_t elementSize, std::size_t byteSize, TCTreeNode& node);
    /// Whether one node carries several elements.
    virtual bool HasCountedElements() const;
    /// 7 and 8 ask that elements are handed to ReleaseElement before their container is emptied.
    virtual int GetKind() const;
    virtual void ReleaseElement(void* element);
};

/// The same for marshalable objects; `element` is the address of a TIMarshalable, one node is one sub-branch.
/// A node that cannot be filled is marked, because containers never report failure.
class TCMarshalableNodeCreator : public DefaultNodeCreator
{
public:
    std::unique_ptr<TCTreeNode> CreateNode(void* element, std::size_t size, short tag, int count) override;
    bool FillElement(void* element, std::size_t elementSize, std::size_t byteSize, TCTreeNode& node) override;
    int GetKind() const override;
};

/// Bound to one branch, walks the values of one object. After the first failure nothing more is read or written.
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
    /// Ends the writing; true if every push went well.
    bool Extract() override;

private:
    void Append(const std::unique_ptr<TCTreeNode>& node);
};

/// Branch into object; each value is filled at its push, in the order of the children.
class TCTreeToClassFormatter : public TCTreeFormatter
{
public:
    using TCTreeFormatter::TCTreeFormatter;
    void PushValue(short tag, int width, void* value);
    /// `data` must point to at least `length` bytes.
    void PushLengthArray(short tag, int length, void* data, TILengthInfoContainer* lengthInfo);
    void PushMarshalableClass(short tag, TIMarshalable* object);
    /// Ends the reading; true if every push found its value and no child is left over.
    bool FillOut() override;

private:
    TCTreeNode* Next(short tag);
    std::size_t m_next = 0;
};
