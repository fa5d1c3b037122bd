// Conversion of objects to trees and back.
#include "debugutil/MenuItem.h"
#include "support/Trees.h"

#include <gtest/gtest.h>
#include <sstream>
#include <sys/resource.h>

namespace
{

// Records the calls of its operations.
struct RecordingCreator : TCMarshalableNodeCreator {
    RecordingCreator(int newKind, std::string& newCalls) : kind(newKind), calls(newCalls) {}
    bool FillElement(void*, std::size_t size, std::size_t byteSize, TCTreeNode&) override
    {
        calls += "fill " + std::to_string(byteSize / size) + " ";
        return false;
    }
    bool HasCountedElements() const override { return kind > 7; }
    int GetKind() const override { return kind; }
    void ReleaseElement(void*) override { calls += "release "; }
    int kind;
    std::string& calls;
};

TEST(MenuItems, UseTheirNodeCreator)
{
    unsigned long none = 0;
    EXPECT_FALSE(TSMenuItem().getID() != 0 || TSMenuItem().getState() || TSMenuItem().GetSizeOfMarshalled(none));
    TSMenuItem partial; // without its state
    TCTreeBranch onlyName = Branch(std::istringstream("0:[0:u1 1:'N']"));
    EXPECT_FALSE(partial.TreeToClass(onlyName) || partial.getState());
    const char* const expected[] = {"fill 1 fill 1 fill 1 ", "release release fill 1 fill 1 fill 1 ",
                                    "release release fill 2 fill 0 fill 0 ", "fill 2 fill 0 fill 0 "};
    for (const int kind : {6, 7, 8, 9}) {
        std::vector<TSMenuItem> items(2);
        std::string calls;
        TCMarshalableMenuItems list(&items, std::make_unique<RecordingCreator>(kind, calls));
        EXPECT_EQ(list.GetMarshalableStorageType(), 1);
        TCTreeBranch branch;
        branch.AppendChild({-1, TCTreeNode::Bytes(2 * sizeof(TSMenuItem))});
        EXPECT_TRUE(list.ClassToTree(branch) && list.TreeToClass(branch));
        EXPECT_EQ(calls, expected[kind - 6]);
    }
    TCTreeBranch nothing;
    TCMarshalableMenuItems unbound(nullptr, std::make_unique<TCMarshalableNodeCreator>());
    EXPECT_TRUE(unbound.ClassToTree(nothing) && unbound.TreeToClass(nothing));
}

TEST(Tree, IgnoresTheValuesAfterAFailure)
{
    std::uint32_t number = 7;
    for (const auto& [width, length, expected] :
         {std::tuple(4, 0, "written 0:u7 1:'' 2:u7"), std::tuple(3, 0, "failed "), std::tuple(4, -1, "failed 0:u7")}) {
        TCTreeBranch branch;
        TCClassToTreeFormatter writer(branch);
        writer.PushValue(0, width, &number);
        writer.PushLengthArray(1, length, &number, nullptr);
        writer.PushValue(2, 4, &number);
        EXPECT_EQ((writer.Extract() ? "written " : "failed ") + Show(branch), expected);
    }
    TCTreeBranch bytes = Branch(std::istringstream("0:'abc'")); // longer than their destination
    TCTreeToClassFormatter reader(bytes);
    EXPECT_FALSE((reader.PushLengthArray(0, 2, &number, nullptr), reader.FillOut()));
}

// The length comes from outside: memory is only taken for bytes that are there.
TEST(MarshalableString, TakesNoMemoryForALengthWithoutBytes)
{
    std::string text;
    TCTreeBranch onlyLength = Branch(std::istringstream("0:u1000000000")),
                 fewBytes = Branch(std::istringstream("0:u1000000000 1:'abc'"));
    rusage before = {}, after = {};
    getrusage(RUSAGE_SELF, &before);
    EXPECT_FALSE(TCMarshalableString(&text).TreeToClass(onlyLength) ||
                 TCMarshalableString(&text).TreeToClass(fewBytes));
    getrusage(RUSAGE_SELF, &after);
    EXPECT_LT(after.ru_maxrss, before.ru_maxrss + 100'000); // kilobytes
}

} // namespace
