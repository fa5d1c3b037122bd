// Objects that are sent in messages, as branches of a tree.
#pragma once

class TCMessageBuffer;
class TCTreeBranch;

/// An object that can be written to a message tree and read from it. Operations return true on success.
class TIMarshalable
{
public:
    virtual ~TIMarshalable() = default;
    /// Fills in the size of the marshalled object in bytes, if it is known in advance.
    virtual bool GetSizeOfMarshalled(unsigned long& size) = 0;
    /// Writes the object as children of the branch.
    virtual bool ClassToTree(TCTreeBranch& branch) = 0;
    /// Fills the object from the children of the branch.
    virtual bool TreeToClass(TCTreeBranch& branch) = 0;
    /// 0 for a record, 1 for a container of elements of one type.
    virtual int GetMarshalableStorageType() = 0;
    /// Writes or reads the object as raw bytes, without a tree.
    virtual bool Store(TCMessageBuffer* buffer) = 0;
    virtual bool Load(TCMessageBuffer* buffer) = 0;
};

/// The default: every operation fails. Derived classes override what they support.
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
