// The proxy and the shell's remote half on a platform that only records: what a set's messaging is handed.
#include "debugutil/DebugUtil.h"
#include "support/Screens.h"
#include "support/Trees.h"
#include "tvs-api-internal/Diagnostics.h"

#include <deque>
#include <gtest/gtest.h>
#include <iostream>
#include <optional>
#include <sstream>

namespace
{

const std::string kInterface = "com.kavrin.IDebugPrintControl";

// Calls and console, in their order. Calls come before main and after it, too.
std::ostringstream& Record()
{
    static auto& record = *new std::ostringstream;
    return record;
}

std::string TakeRecord()
{
    std::string text = Record().str();
    Record().str("");
    for (std::ostream* const stream : {&std::cout, &std::cerr})
        stream->rdbuf(Record().rdbuf());
    return text;
}

/// How a call goes: what it returns, an exception if there is nothing, and what its reply fills.
struct Play {
    std::optional<bool> outcome;
    std::vector<TCTreeNode> reply;
};
std::deque<Play> plays;

TCTreeNode Number(int number) { return {0, static_cast<std::uint32_t>(number)}; }

Play Screen(int result, std::string text)
{
    TCTreeBranch branch;
    TCMarshalableString(&text).ClassToTree(branch);
    return {true, {Number(result), {0, branch}}};
}

} // namespace

class TVServiceAPIConnection::Channel
{
};

TVServiceAPIConnection::TVServiceAPIConnection(std::string signalInterface, std::string objectPath, bool reserved)
{
    Record() << signalInterface << ' ' << objectPath << ' ' << reserved;
}

TVServiceAPIConnection::~TVServiceAPIConnection() { Record() << "closed"; }

void TCMarshallingHelper::PushValue(EMarshallingDirection direction, int width, void* value)
{
    m_values.push_back({direction, width, value, nullptr});
}

void TCMarshallingHelper::PushMarshalableClass(EMarshallingDirection direction, TIMarshalable* object)
{
    m_values.push_back({direction, 0, nullptr, object});
}

bool TCMarshallingHelperProxy::Run(TVServiceAPIConnection* connection, std::string& interfaceName,
                                   const std::string& method, short number, bool reserved)
{
    std::vector<TCTreeNode> pushed;
    for (const auto& [direction, width, plain, object] : m_values) {
        const auto tag = static_cast<short>(direction); // the direction stands where the tag does
        pushed.push_back(object == nullptr ? *DefaultNodeCreator().CreateNode(plain, std::size_t(width), tag, 1)
                                           : *TCMarshalableNodeCreator().CreateNode(object, sizeof object, tag, 1));
    }
    Record() << number << ' ' << method << '(' << Show(pushed) << ')' << (connection == nullptr ? " nowhere" : "")
             << (interfaceName == kInterface && !reserved ? "\n" : " of " + interfaceName);
    const Play play = plays.empty() ? Play{false, {}} : plays.front();
    plays.erase(plays.begin(), plays.begin() + (plays.empty() ? 0 : 1));
    if (!play.outcome)
        throw std::runtime_error("bro\nken");
    std::size_t next = 0;
    for (const auto& [direction, width, plain, object] : m_values) {
        if (direction != MARSHALLING_REPLY || next == play.reply.size())
            continue;
        TCTreeNode node = play.reply[next++];
        if (object == nullptr)
            DefaultNodeCreator().FillElement(plain, std::size_t(width), std::size_t(width), node);
        else
            object->TreeToClass(std::get<TCTreeBranch>(node.value));
    }
    return *play.outcome;
}

void _TCApiAssert(const char* expression, const char* path, unsigned long line, const char* message)
{
    Record() << expression << ' ' << path << ' ' << line << (message == nullptr ? "" : message);
}

namespace
{

TEST(Proxy, MakesEachCallAsTheServiceKnowsIt)
{
    TSMenuItem item;
    item.setName("Tuner");
    item.setState(true);
    item.setID(7);
    TCTreeBranch items;
    items.AppendChild(*TCMarshalableNodeCreator().CreateNode(static_cast<TIMarshalable*>(&item), 0, -1, 1));
    std::string text;
    std::int32_t value = 0;
    const auto with = [](int result, const auto& written) {
        return (std::ostringstream() << result << ' ' << written).str();
    };
    const auto flag = [](bool result) { return std::string(result ? "true" : "false"); };
    using Proxy = TCDebugPrintControlProxy;
    struct Row {
        const char* call;
        const char* results; // of the reply with success and with failure, of no reply with failure and with success
        std::vector<TCTreeNode> reply;
        std::function<std::string(Proxy&)> make;
    };
    const Row rows[] = {
        {"0 Start(0:u4294967295 0:[0:u3 1:\"old\"])", "7 new|-1 new|-1 old|-1 old|", Screen(7, "new").reply,
         [&](Proxy& p) { return with(p.Start(text), text); }},
        {"1 Execute(0:u4294967295 1:[0:u2 1:\"03\"] 0:[0:u3 1:\"old\"])", "-5 old|-1 old|-1 old|-1 old|",
         Screen(-5, "").reply, [&](Proxy& p) { return with(p.Execute("03", text), text); }},
        {"2 Stop(0:u4294967295)", "2 |-1 |-1 |-1 |", {Number(2)}, [&](Proxy& p) { return with(p.Stop(), ""); }},
        {"3 Check(0:u4294967295 0:u5)",
         "0 -9|-1 -9|-1 5|-1 5|",
         {Number(0), Number(-9)},
         [&](Proxy& p) { return with(p.Check(value), value); }},
        {"4 GetMenuItems(0:u4294967295 0:[])",
         "Tuner|Tuner|||",
         {Number(0), {0, items}},
         [](Proxy& p) {
             const auto received = p.GetMenuItems();
             return received.empty() ? "" : received[0].getName();
         }},
        {"5 SetMenuItems(0:u4294967295 1:[-1:[0:[0:u5 1:\"Tuner\"] 1:y1 2:u7]])",
         "true|false|false|true|",
         {Number(0)},
         [&](Proxy& p) { return flag(p.SetMenuItems({item})); }},
        {"6 SetMenuItem(0:u4294967295 1:[0:[0:u5 1:\"Tuner\"] 1:y1 2:u7])",
         "true|false|false|true|",
         {Number(-5)},
         [&](Proxy& p) { return flag(p.SetMenuItem(item)); }},
        {"7 SetQoSEnabled(0:u4294967295 1:y1)",
         "true|false|false|true|",
         {Number(0)},
         [&](Proxy& p) { return flag(p.SetQoSEnabled(true)); }},
        {"8 IsQoSEnabled(0:y0)",
         "true|true|false|false|",
         {{0, std::uint8_t{2}}},
         [&](Proxy& p) { return flag(p.IsQoSEnabled()); }},
        {"9 SetDebugMode(0:u4294967295 1:u77 1:y0)",
         "true|false|false|true|",
         {Number(0)},
         [&](Proxy& p) { return flag(p.SetDebugMode(static_cast<EDebugMode>(77), false)); }},
        {"10 IsDebugModeEnabled(0:y0 1:u2)",
         "true|true|false|false|",
         {{0, std::uint8_t{1}}},
         [&](Proxy& p) { return flag(p.IsDebugModeEnabled(DEBUG_MODE_PERFORMANCE)); }},
    };
    TakeRecord();
    const auto walk = [&](std::unique_ptr<Proxy> proxy, const std::string& made, const std::string& end) {
        EXPECT_EQ(TakeRecord(), made);
        for (const Row& row : rows) {
            plays = {{true, row.reply}, {false, row.reply}, {false, {}}, {true, {}}};
            std::string results;
            while (!plays.empty()) {
                text = "old";
                value = 5;
                results += row.make(*proxy) + "|";
                EXPECT_EQ(TakeRecord(), row.call + end);
            }
            EXPECT_EQ(results, row.results) << row.call;
        }
    };
    walk(std::make_unique<Proxy>(kInterface), "com.kavrin.TVService.SignalIFace /com/kavrin/TVService/SignalObject 1",
         "\n");
    EXPECT_EQ(TakeRecord(), "closed");
    walk(std::make_unique<Proxy>(kInterface, nullptr),
         "m_pTVSConnection src/debugutil/DebugPrintControlProxy 20"
         "ASSERT!!! - function TCDebugPrintControlProxy, line 20",
         " nowhere\n");
    EXPECT_EQ(TakeRecord(), "");
}

TEST(MarshalableString, WithoutAStringAssertsAndFails)
{
    TCTreeBranch branch;
    TakeRecord();
    unsigned long size = 9;
    TCMarshalableString unbound(nullptr);
    EXPECT_FALSE(unbound.ClassToTree(branch));
    EXPECT_EQ(TakeRecord(), "m_data /usr/include/tvs-api-internal/MarshalableString 72");
    EXPECT_FALSE(unbound.TreeToClass(branch));
    EXPECT_EQ(TakeRecord(), "m_data /usr/include/tvs-api-internal/MarshalableString 93");
    EXPECT_FALSE(unbound.GetSizeOfMarshalled(size));
    EXPECT_EQ(size, 9U);
    EXPECT_TRUE(branch.GetChildren().empty());
}

TEST(Shell, ReportsExceptionsOfRemoteCallsAndStops)
{
    const Play broken, stopped = {true, {}};
    // The first Start, the second Execute, and Stop: after a menu that was ended, and at the end of the input.
    plays = {broken,           Screen(1, "a> "), Screen(2, "b> "), broken,           stopped,
             Screen(1, "c> "), Screen(0, "no>"), broken,           Screen(1, "d> "), broken};
    static std::istringstream words("1 1 x y 1 99 1");
    std::cin.rdbuf(words.rdbuf());
    TakeRecord();
    TCDebugUtil::StartMenu();
    const std::string start = "<top>\nexecuting: TVS\n0 Start(0:u4294967295 0:[0:u";
    const std::string execute = "1 Execute(0:u4294967295 1:[0:u", failure = "TVS: bro ken\n",
                      stop = "2 Stop(0:u4294967295)\n";
    EXPECT_EQ(FoldMenus(TakeRecord()), "DebugUtil\n" + start + "0])\n" + failure + start + "0])\na> " + execute +
                                           "1 1:\"x\"] 0:[0:u3 1:\"a> \"])\nb> " + execute +
                                           "1 1:\"y\"] 0:[0:u3 1:\"b> \"])\n" + failure + stop + start +
                                           "3 1:\"b> \"])\nc> " + execute + "2 1:\"99\"] 0:[0:u3 1:\"c> \"])\n" + stop +
                                           failure + start + "3 1:\"no>\"])\nd> " + stop + failure);
}

} // namespace
