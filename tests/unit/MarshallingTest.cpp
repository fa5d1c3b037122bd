// Objects to trees and back, honest and lying.
#include "debugutil/MenuItem.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace
{

TSMenuItem Item(const std::string& name, bool state, std::uint32_t id)
{
    TSMenuItem item;
    item.setName(name);
    item.setState(state);
    item.setID(id);
    return item;
}

TCTreeNode Text(short tag, std::uint32_t length, const std::string& bytes)
{
    TCTreeBranch branch;
    branch.AppendChild({0, length});
    if (!bytes.empty())
        branch.AppendChild({1, TCTreeNode::Bytes(bytes.begin(), bytes.end())});
    return {tag, std::move(branch)};
}

TCTreeNode ItemNode(short tag, std::uint8_t state = 1)
{
    TCTreeBranch branch;
    branch.AppendChild(Text(0, 5, "Tuner"));
    branch.AppendChild({1, state});
    branch.AppendChild({2, std::uint32_t{7}});
    return {tag, std::move(branch)};
}

TCMarshalableMenuItems Wrap(std::vector<TSMenuItem>* items)
{
    return {items, std::make_unique<TCMarshalableNodeCreator>()};
}

TEST(MarshalableString, KeepsEveryByte)
{
    for (const std::string& sent : {std::string("x"), std::string("a\0b", 3), std::string(100'000, '\xE4')}) {
        TCTreeBranch branch;
        std::string source = sent, target = "before";
        ASSERT_TRUE(TCMarshalableString(&source).ClassToTree(branch));
        ASSERT_EQ(branch.GetChildren().size(), 2U);
        EXPECT_EQ(branch.GetChildren()[1].GetElementCount(1), sent.size());
        ASSERT_TRUE(TCMarshalableString(&target).TreeToClass(branch));
        EXPECT_EQ(target, sent);
    }
}

TEST(MarshalableString, EmptyStringIsALengthAndLeavesTheTarget)
{
    TCTreeBranch branch;
    std::string source, target = "before";
    ASSERT_TRUE(TCMarshalableString(&source).ClassToTree(branch));
    EXPECT_EQ(branch.GetChildren().size(), 1U);
    ASSERT_TRUE(TCMarshalableString(&target).TreeToClass(branch));
    EXPECT_EQ(target, "before");
    unsigned long size = 9;
    EXPECT_TRUE(TCMarshalableString(&target).GetSizeOfMarshalled(size));
    EXPECT_EQ(size, 6U);
}

TEST(MarshalableString, LiesLeaveTheTarget)
{
    struct Lie {
        const char* name;
        std::function<void(TCTreeBranch&)> build;
    };
    const auto length = [](std::uint32_t number) { return TCTreeNode(0, number); };
    const auto bytes = [](short tag, std::size_t count) { return TCTreeNode(tag, TCTreeNode::Bytes(count, 'x')); };
    const Lie lies[] = {
        {"nothing", [](TCTreeBranch&) {}},
        {"bytes missing", [&](TCTreeBranch& b) { b.AppendChild(length(3)); }},
        {"huge", [&](TCTreeBranch& b) { b.AppendChild(length(0xFFFFFFFF)), b.AppendChild(bytes(1, 3)); }},
        {"too long", [&](TCTreeBranch& b) { b.AppendChild(length(4)), b.AppendChild(bytes(1, 3)); }},
        {"too short", [&](TCTreeBranch& b) { b.AppendChild(length(2)), b.AppendChild(bytes(1, 3)); }},
        {"width",
         [&](TCTreeBranch& b) {
             b.AppendChild({0, std::uint64_t{3}}), b.AppendChild(bytes(1, 3));
         }},
        {"tag of the length",
         [&](TCTreeBranch& b) {
             b.AppendChild({5, std::uint32_t{3}}), b.AppendChild(bytes(1, 3));
         }},
        {"tag of the bytes", [&](TCTreeBranch& b) { b.AppendChild(length(3)), b.AppendChild(bytes(2, 3)); }},
        {"not an array",
         [&](TCTreeBranch& b) {
             b.AppendChild(length(4)), b.AppendChild({1, std::uint32_t{0}});
         }},
        {"order", [&](TCTreeBranch& b) { b.AppendChild(bytes(1, 3)), b.AppendChild(length(3)); }},
        {"more behind", [&](TCTreeBranch& b) { b.AppendChild(length(0)), b.AppendChild(bytes(1, 3)); }},
    };
    for (const Lie& lie : lies) {
        TCTreeBranch branch;
        lie.build(branch);
        std::string target = "before";
        EXPECT_FALSE(TCMarshalableString(&target).TreeToClass(branch)) << lie.name;
        EXPECT_EQ(target, "before") << lie.name;
    }
}

TEST(MarshalableString, WithoutAStringAssertsAndFails)
{
    TCTreeBranch branch;
    unsigned long size = 9;
    TCMarshalableString unbound(nullptr);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(unbound.ClassToTree(branch));
    EXPECT_FALSE(unbound.TreeToClass(branch));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "ASSERT m_data at /usr/include/tvs-api-internal/MarshalableString:72\n"
              "ASSERT m_data at /usr/include/tvs-api-internal/MarshalableString:93\n");
    EXPECT_FALSE(unbound.GetSizeOfMarshalled(size));
    EXPECT_EQ(size, 9U);
    EXPECT_TRUE(branch.GetChildren().empty());
}

TEST(MenuItem, TravelsAsThreeChildren)
{
    TSMenuItem item = Item("", true, 0xFFFFFFFF), target = Item("before", false, 1);
    TCTreeBranch branch;
    ASSERT_TRUE(item.ClassToTree(branch));
    ASSERT_EQ(branch.GetChildren().size(), 3U);
    EXPECT_EQ(std::get<TCTreeBranch>(branch.GetChildren()[0].value).GetChildren().size(), 1U);
    EXPECT_EQ(branch.GetChildren()[1].GetElementCount(1), 1U);
    EXPECT_EQ(branch.GetChildren()[2].GetElementCount(1), 4U);
    ASSERT_TRUE(target.TreeToClass(branch));
    EXPECT_EQ(target.getName(), "before");
    EXPECT_TRUE(target.getState());
    EXPECT_EQ(target.getID(), std::numeric_limits<std::uint32_t>::max());
}

TEST(MenuItem, TakesAnyByteAsState)
{
    TCTreeNode node = ItemNode(0, 200);
    TSMenuItem item;
    ASSERT_TRUE(item.TreeToClass(std::get<TCTreeBranch>(node.value)));
    EXPECT_TRUE(item.getState());
}

TEST(MenuItems, TravelInOrderAndReplaceTheVector)
{
    std::vector<TSMenuItem> source = {Item("a", true, 1), Item("b", false, 2)}, target(5), none;
    TCTreeBranch branch, empty;
    ASSERT_TRUE(Wrap(&source).ClassToTree(branch));
    ASSERT_EQ(branch.GetChildren().size(), 2U);
    EXPECT_EQ(branch.GetChildren()[1].tag, -1);
    ASSERT_TRUE(Wrap(&target).TreeToClass(branch));
    ASSERT_EQ(target.size(), 2U);
    EXPECT_EQ(target[1].getName(), "b");
    ASSERT_TRUE(Wrap(&none).ClassToTree(empty));
    EXPECT_TRUE(empty.GetChildren().empty());
    ASSERT_TRUE(Wrap(&target).TreeToClass(empty));
    EXPECT_TRUE(target.empty());
    EXPECT_TRUE(Wrap(nullptr).ClassToTree(branch) && Wrap(nullptr).TreeToClass(branch));
    EXPECT_EQ(Wrap(nullptr).GetMarshalableStorageType(), 1);
}

// Never makes a node for items that are off, and counts what is handed back.
class PickyCreator : public TCMarshalableNodeCreator
{
public:
    PickyCreator(int kind, int* released) : m_kind(kind), m_released(released) {}
    std::unique_ptr<TCTreeNode> CreateNode(void* element, std::size_t size, short tag, int count) override
    {
        const auto* item = static_cast<TSMenuItem*>(static_cast<TIMarshalable*>(element));
        return item->getState() ? TCMarshalableNodeCreator::CreateNode(element, size, tag, count) : nullptr;
    }
    int GetKind() const override { return m_kind; }
    void ReleaseElement(void*) override { ++*m_released; }

private:
    int m_kind;
    int* m_released;
};

TEST(MenuItems, AskTheCreatorWhatToSkipAndToRelease)
{
    for (const auto& [kind, expected] : {std::pair(1, 0), std::pair(7, 3), std::pair(8, 3)}) {
        int released = 0;
        std::vector<TSMenuItem> items = {Item("a", true, 1), Item("b", false, 2), Item("c", true, 3)};
        TCMarshalableMenuItems wrapper(&items, std::make_unique<PickyCreator>(kind, &released));
        TCTreeBranch branch;
        ASSERT_TRUE(wrapper.ClassToTree(branch));
        EXPECT_EQ(branch.GetChildren().size(), 2U);
        ASSERT_TRUE(wrapper.TreeToClass(branch));
        EXPECT_EQ(items.size(), 2U);
        EXPECT_EQ(released, expected) << kind;
    }
}

TEST(MenuItems, MarkWhatTheyCannotRead)
{
    std::vector<TSMenuItem> items;
    TCTreeBranch branch;
    branch.AppendChild(ItemNode(-1));
    branch.AppendChild(ItemNode(3));
    branch.AppendChild({-1, std::uint32_t{1}});
    branch.AppendChild(Text(-1, 3, "abc"));
    ASSERT_TRUE(Wrap(&items).TreeToClass(branch));
    EXPECT_EQ(items.size(), 4U);
    std::string marks;
    for (const TCTreeNode& child : branch.GetChildren())
        marks += child.mismatched ? 'x' : '.';
    EXPECT_EQ(marks, ".xxx");
}

} // namespace
