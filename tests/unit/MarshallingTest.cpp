// Objects to trees and back.
#include "debugutil/MenuItem.h"
#include "support/Trees.h"

#include <gtest/gtest.h>

namespace
{

constexpr std::uint8_t kOff = 0;

TSMenuItem Item(const std::string& name, bool state, std::uint32_t id)
{
    TSMenuItem item;
    item.setName(name);
    item.setState(state);
    item.setID(id);
    return item;
}

TCTreeBranch Branch(std::vector<TCTreeNode> children)
{
    TCTreeBranch branch;
    branch.GetChildren() = std::move(children);
    return branch;
}

TCTreeNode Bytes(short tag, const std::string& bytes) { return {tag, TCTreeNode::Bytes(bytes.begin(), bytes.end())}; }

std::string Written(TIMarshalable&& object)
{
    TCTreeBranch branch;
    const bool written = object.ClassToTree(branch);
    return (written ? "" : "failed ") + Show(branch.GetChildren());
}

std::string Written(std::string text) { return Written(TCMarshalableString(&text)); }

TEST(MarshalableString, IsALengthAndTheBytesUnlessThereAreNone)
{
    EXPECT_EQ(Written(""), "0:u0");
    EXPECT_EQ(Written("x"), "0:u1 1:\"x\"");
    EXPECT_EQ(Written({"a\0\xE4", 3}), std::string("0:u3 1:\"a\0\xE4\"", 12));
    std::string text = "before";
    unsigned long size = 9;
    EXPECT_TRUE(TCMarshalableString(&text).GetSizeOfMarshalled(size));
    EXPECT_EQ(size, 6U);
}

TEST(MarshalableString, LeavesItsTextToALie)
{
    const std::pair<TCTreeBranch, const char*> cases[] = {
        {Branch({{0, 3U}, Bytes(1, "a\xE4z")}), "a\xE4z"},
        {Branch({{0, 1U}, Bytes(1, "x")}), "x"},
        {Branch({{0, 0U}}), "before"},
        {Branch({}), "failed before"},
        {Branch({{0, 3U}}), "failed before"},
        {Branch({{0, 4U}, Bytes(1, "abc")}), "failed before"},
        {Branch({{0, 2U}, Bytes(1, "abc")}), "failed before"},
        {Branch({{0, 0xFFFFFFFFU}, Bytes(1, "abc")}), "failed before"},
        {Branch({{0, std::uint64_t{3}}, Bytes(1, "abc")}), "failed before"},
        {Branch({{5, 3U}, Bytes(1, "abc")}), "failed before"},
        {Branch({{0, 3U}, Bytes(2, "abc")}), "failed before"},
        {Branch({{0, 4U}, {1, 0U}}), "failed before"},
        {Branch({Bytes(1, "abc"), {0, 3U}}), "failed before"},
        {Branch({{0, 0U}, Bytes(1, "abc")}), "failed before"},
        {Branch({{0, 3U}, Bytes(1, "abc"), {2, 1U}}), "failed before"},
    };
    for (auto [branch, expected] : cases) {
        std::string text = "before";
        const bool filled = TCMarshalableString(&text).TreeToClass(branch);
        EXPECT_EQ((filled ? "" : "failed ") + text, expected) << Show(branch.GetChildren());
    }
}

std::string Read(TSMenuItem item, TCTreeBranch branch)
{
    const bool filled = item.TreeToClass(branch);
    return (filled ? "" : "failed ") + Written(std::move(item));
}

TEST(MenuItem, IsItsNameStateAndNumber)
{
    EXPECT_EQ(Written(TSMenuItem()), "0:[0:u0] 1:y0 2:u0");
    EXPECT_EQ(Written(Item("Tuner", true, 0xFFFFFFFF)), "0:[0:u5 1:\"Tuner\"] 1:y1 2:u4294967295");
    const TSMenuItem old = Item("old", true, 5);
    const TCTreeNode name = {0, Branch({{0, 1U}, Bytes(1, "n")})};
    EXPECT_EQ(Read(old, Branch({name, {1, kOff}, {2, 7U}})), "0:[0:u1 1:\"n\"] 1:y0 2:u7");
    EXPECT_EQ(Read({}, Branch({name, {1, std::uint8_t{200}}, {2, 7U}})), "0:[0:u1 1:\"n\"] 1:y1 2:u7");
    EXPECT_EQ(Read(old, Branch({{0, Branch({{0, 0U}})}, {1, kOff}, {2, 7U}})), "0:[0:u3 1:\"old\"] 1:y0 2:u7");
    EXPECT_EQ(Read(old, Branch({name})), "failed 0:[0:u1 1:\"n\"] 1:y1 2:u5");
    EXPECT_EQ(Read(old, Branch({{0, 1U}, {1, kOff}, {2, 7U}})), "failed 0:[0:u3 1:\"old\"] 1:y1 2:u5");
    EXPECT_EQ(Read(old, Branch({name, {2, 7U}, {1, kOff}})), "failed 0:[0:u1 1:\"n\"] 1:y1 2:u5");
    EXPECT_EQ(Read(old, Branch({name, {1, kOff}, {2, kOff}})), "failed 0:[0:u1 1:\"n\"] 1:y0 2:u5");
    EXPECT_EQ(Read(old, Branch({name, {1, kOff}, {2, 7U}, {3, kOff}})), "failed 0:[0:u1 1:\"n\"] 1:y0 2:u7");
}

TEST(MenuItems, MarkWhatTheyCannotRead)
{
    const TCTreeBranch item = Branch({{0, Branch({{0, 1U}, Bytes(1, "n")})}, {1, kOff}, {2, 7U}});
    TCTreeBranch branch = Branch({{-1, item}, {3, item}, {-1, 1U}, {-1, Branch({{0, 1U}})}, {-1, item}});
    std::vector<TSMenuItem> items(9);
    TCMarshalableMenuItems list(&items, std::make_unique<TCMarshalableNodeCreator>());
    EXPECT_TRUE(list.TreeToClass(branch));
    std::string read;
    ASSERT_EQ(items.size(), 5U);
    for (std::size_t i = 0; i < items.size(); ++i)
        read += items[i].getName() + (branch.GetChildren()[i].mismatched ? "x" : ".");
    EXPECT_EQ(read, "n.xxxn.");
    EXPECT_EQ(list.GetMarshalableStorageType(), 1);
    TCTreeBranch empty;
    EXPECT_TRUE(list.TreeToClass(empty) && items.empty());
    TCMarshalableMenuItems unbound(nullptr, std::make_unique<TCMarshalableNodeCreator>());
    EXPECT_TRUE(unbound.ClassToTree(empty) && unbound.TreeToClass(branch) && empty.GetChildren().empty());
}

// Makes no node of an item that is off, and writes down what it is asked.
class AskedCreator : public TCMarshalableNodeCreator
{
public:
    AskedCreator(int kind, bool counted, std::string* asked) : m_kind(kind), m_counted(counted), m_asked(asked) {}
    std::unique_ptr<TCTreeNode> CreateNode(void* element, std::size_t size, short tag, int count) override
    {
        Note("make", element, size);
        return ItemAt(element).getState() ? TCMarshalableNodeCreator::CreateNode(element, size, tag, count) : nullptr;
    }
    bool FillElement(void* element, std::size_t size, std::size_t byteSize, TCTreeNode&) override
    {
        Note("fill", element, size);
        *m_asked += ' ' + std::to_string(byteSize / sizeof(TSMenuItem));
        return true;
    }
    bool HasCountedElements() const override { return m_counted; }
    int GetKind() const override { return m_kind; }
    void ReleaseElement(void* element) override { Note("release", element, sizeof(TSMenuItem)); }

private:
    static TSMenuItem& ItemAt(void* element) { return static_cast<TSMenuItem&>(*static_cast<TIMarshalable*>(element)); }
    void Note(const char* what, void* element, std::size_t size)
    {
        *m_asked += std::string(" ") + what + ItemAt(element).getName() + (size == sizeof(TSMenuItem) ? "" : "?");
    }
    int m_kind;
    bool m_counted;
    std::string* m_asked;
};

TEST(MenuItems, AskTheCreator)
{
    for (const auto& [kind, counted, expected] : {std::tuple(6, false, " makeA makeB fill 1 fill 1"),
                                                  std::tuple(7, false, " makeA makeB releaseA releaseB fill 1 fill 1"),
                                                  std::tuple(8, true, " makeA makeB releaseA releaseB fill 0 fill 2"),
                                                  std::tuple(9, true, " makeA makeB fill 0 fill 2")}) {
        std::vector<TSMenuItem> items = {Item("A", false, 1), Item("B", true, 2)};
        std::string asked;
        TCMarshalableMenuItems list(&items, std::make_unique<AskedCreator>(kind, counted, &asked));
        TCTreeBranch branch;
        EXPECT_TRUE(list.ClassToTree(branch));
        EXPECT_EQ(Show(branch.GetChildren()), "-1:[0:[0:u1 1:\"B\"] 1:y1 2:u2]");
        branch.AppendChild(Bytes(-1, std::string(2 * sizeof(TSMenuItem), 'x')));
        EXPECT_TRUE(list.TreeToClass(branch));
        EXPECT_EQ(items.size(), 2U);
        EXPECT_EQ(asked, expected);
    }
}

TEST(Tree, HoldsEveryWidthAndNothingBehindAFailure)
{
    TCTreeBranch branch;
    TCMarshalable nothing;
    std::uint8_t y = 1;
    std::uint16_t q = 2;
    std::uint32_t u = 3;
    std::uint64_t t = 4;
    char bytes[] = "ab";
    const auto push = [&](auto& formatter) {
        formatter.PushValue(0, 1, &y);
        formatter.PushValue(1, 2, &q);
        formatter.PushValue(2, 4, &u);
        formatter.PushValue(3, 8, &t);
        formatter.PushLengthArray(4, 2, bytes, nullptr);
        formatter.PushLengthArray(5, 0, bytes, nullptr);
    };
    const std::string whole = "0:y1 1:q2 2:u3 3:t4 4:\"ab\" 5:\"\"";
    TCClassToTreeFormatter writer(branch);
    push(writer);
    EXPECT_TRUE(writer.Extract());
    EXPECT_EQ(Show(branch.GetChildren()), whole);
    EXPECT_EQ(branch.GetChildren()[3].GetElementCount(2), 4U);
    EXPECT_EQ(branch.GetChildren()[4].GetElementCount(2), 1U);
    for (const int failing : {0, 1, 2}) {
        TCTreeBranch copy = branch;
        TCClassToTreeFormatter second(copy);
        if (failing == 0)
            second.PushValue(6, 3, &u);
        else if (failing == 1)
            second.PushLengthArray(6, -1, bytes, nullptr);
        else
            second.PushMarshalableClass(6, &nothing);
        push(second);
        second.PushMarshalableClass(7, &nothing);
        EXPECT_FALSE(second.Extract());
        EXPECT_EQ(Show(copy.GetChildren()), whole);
    }
    y = 0, q = 0, u = 0, t = 0, bytes[1] = 'x';
    TCTreeToClassFormatter reader(branch);
    push(reader);
    EXPECT_TRUE(reader.FillOut());
    EXPECT_EQ(std::to_string(y) + std::to_string(q) + std::to_string(u) + std::to_string(t) + bytes, "1234ab");
    branch.GetChildren()[2].value = std::uint64_t{9};
    branch.GetChildren()[3].value = std::uint64_t{9};
    TCTreeToClassFormatter second(branch);
    push(second);
    EXPECT_FALSE(second.FillOut());
    EXPECT_EQ(u + t, 7U);
}

} // namespace
