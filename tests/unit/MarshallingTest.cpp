// Objects to trees and back.
#include "debugutil/MenuItem.h"
#include "support/Trees.h"

#include <gtest/gtest.h>

namespace
{

TEST(MarshalableString, KnowsItsSizeAndKeepsEveryByte)
{
    const std::string zero("a\0b", 3);
    std::string sent = zero, received;
    TCTreeBranch branch;
    EXPECT_TRUE(TCMarshalableString(&sent).ClassToTree(branch) && TCMarshalableString(&received).TreeToClass(branch));
    EXPECT_EQ(received, zero);
    unsigned long size = 9;
    EXPECT_TRUE(TCMarshalableString(&sent).GetSizeOfMarshalled(size));
    EXPECT_EQ(size, 3U);
}

// Makes no node of an item without a name, and writes down what else it is asked.
class AskedCreator : public TCMarshalableNodeCreator
{
public:
    AskedCreator(int kind, bool counted, std::string& asked) : m_kind(kind), m_counted(counted), m_asked(asked) {}
    std::unique_ptr<TCTreeNode> CreateNode(void* element, std::size_t size, short tag, int count) override
    {
        return NameAt(element).empty() ? nullptr : TCMarshalableNodeCreator::CreateNode(element, size, tag, count);
    }
    bool FillElement(void* element, std::size_t size, std::size_t byteSize, TCTreeNode& node) override
    {
        m_asked += "fill " + std::to_string(byteSize / size) + " ";
        return TCMarshalableNodeCreator::FillElement(element, size, byteSize, node);
    }
    bool HasCountedElements() const override { return m_counted; }
    int GetKind() const override { return m_kind; }
    void ReleaseElement(void* element) override { m_asked += "release " + NameAt(element) + " "; }

private:
    static const std::string& NameAt(void* element)
    {
        return static_cast<TSMenuItem*>(static_cast<TIMarshalable*>(element))->getName();
    }
    int m_kind;
    bool m_counted;
    std::string& m_asked;
};

TEST(MenuItems, TravelInOrderAndReplaceWhatWasThere)
{
    for (const auto& [kind, counted, expected] :
         {std::tuple(6, false, "fill 1 fill 1 "), std::tuple(7, false, "release A release  fill 1 fill 1 "),
          std::tuple(8, true, "release A release  fill 0 fill 2 "), std::tuple(9, true, "fill 0 fill 2 ")}) {
        std::vector<TSMenuItem> items(2);
        items[0].setName("A");
        std::string asked;
        TCMarshalableMenuItems list(&items, std::make_unique<AskedCreator>(kind, counted, asked));
        EXPECT_EQ(list.GetMarshalableStorageType(), 1);
        TCTreeBranch branch;
        EXPECT_TRUE(list.ClassToTree(branch));
        EXPECT_EQ(Show(branch), "-1:[0:[0:u1 1:'A'] 1:y0 2:u0]");
        branch.AppendChild({-1, TCTreeNode::Bytes(2 * sizeof(TSMenuItem))});
        EXPECT_TRUE(list.TreeToClass(branch));
        EXPECT_EQ(asked, expected);
        EXPECT_EQ(items.size(), 2U);
        EXPECT_EQ(items[0].getName() + items[1].getName(), "A");
    }
    TCTreeBranch branch = Branch("-1:[]");
    TCMarshalableMenuItems unbound(nullptr, std::make_unique<TCMarshalableNodeCreator>());
    EXPECT_TRUE(unbound.ClassToTree(branch) && unbound.TreeToClass(branch));
    EXPECT_EQ(Show(branch), "-1:[]");
}

TEST(Tree, TakesNothingBehindAFailure)
{
    TCMarshalable nothing;
    std::uint32_t number = 7;
    for (const int failing : {0, 1, 2, 3}) {
        TCTreeBranch branch;
        TCClassToTreeFormatter writer(branch);
        if (failing == 1)
            writer.PushValue(6, 3, &number);
        if (failing == 2)
            writer.PushLengthArray(6, -1, &number, nullptr);
        if (failing == 3)
            writer.PushMarshalableClass(6, &nothing);
        writer.PushValue(0, 4, &number);
        writer.PushLengthArray(1, 0, &number, nullptr);
        EXPECT_EQ((writer.Extract() ? "written " : "failed ") + Show(branch),
                  failing == 0 ? "written 0:u7 1:''" : "failed ");
        TCTreeFormatter base(branch);
        EXPECT_TRUE(base.Extract() && base.FillOut());
    }
}

} // namespace
