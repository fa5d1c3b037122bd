// Objects that travel in messages as branches of a tree.
#pragma once

class TCMessageBuffer;
class TCTreeBranch;

/// What the message tree asks of an object. All operations return true on success.
class TIMarshalable
{
public:
    virtual ~TIMarshalable() = default;
    /// Sets the number of bytes that the object takes, where that is known beforehand.
    virtual bool GetSizeOfMarshalled(unsigned long& size) = 0;
    /// Writes the object as children of the branch.
    virtual bool ClassToTree(TCTreeBranch& branch) = 0;
    /// Fills the object from the children of the branch.
    virtual bool TreeToClass(TCTreeBranch& branch) = 0;
    /// 0 for a record, 1 for a container of like elements.
    virtual int GetMarshalableStorageType() = 0;
    /// Writes or reads the object past the tree, as raw bytes.
    virtual bool Store(TCMessageBuffer* buffer) = 0;
    virtual bool Load(TCMessageBuffer* buffer) = 0;
};

/// An object that cannot do any of it; derived classes say what they can.
class TCMarshalable : public TIMarshalable
{
public:
    bool GetSizeOfMarshalled(unsigned long& size) override;
    bool ClassToTree(TCTreeBranch& branch) override;
    bool TreeToClass(TCTreeBranch& branch) override;
    int GetMarshalableStorageType() override;
    bool Store(TCMessageBuffer* buffer) override;
    bool Load(TCMessageBuffer* buffer) override;
};
