// The proxy and the remote menu on a mock of the messaging that records each call.
#include "debugutil/DebugUtil.h"
#include "support/Process.h"
#include "support/Recording.h"
#include "support/Trees.h"
#include "tvs-api-internal/Diagnostics.h"

#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <sstream>

namespace
{

const std::string kInterface = "com.kavrin.IDebugPrintControl";

// Collects calls and console output in order. Throws when the shell prints without end.
struct RecordBuffer : std::stringbuf {
    std::streamsize xsputn(const char* text, std::streamsize size) override
    {
        return str().size() < 100'000 ? std::stringbuf::xsputn(text, size)
                                      : throw std::length_error("prints without end");
    }
};

// Never freed: calls also come before and after main.
std::ostream& Record()
{
    static auto& record = *new std::ostream(new RecordBuffer);
    return record;
}

std::string TakeRecord()
{
    auto& buffer = dynamic_cast<RecordBuffer&>(*Record().rdbuf());
    std::string text = buffer.str();
    buffer.str("");
    for (std::ostream* const stream : {&std::cout, &std::cerr}) {
        stream->rdbuf(&buffer);
        stream->exceptions(std::ios::badbit);
    }
    return text;
}

// The outcomes of the next calls, one per line: + (success) or - (failure) with the values of the reply, ! (throws a
// std::exception), ? (throws another exception).
std::stringstream outcomes;

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
    const char outcome = static_cast<char>(outcomes.get());
    std::string text;
    std::getline(outcomes, text);
    TCTreeBranch reply = Branch(std::istringstream(text)), pushed; // the tag of a pushed value is its direction
    auto next = reply.GetChildren().begin();
    for (const auto& [direction, width, plain, object] : m_values) {
        pushed.AppendChild(object == nullptr
                               ? *DefaultNodeCreator().CreateNode(plain, std::size_t(width), short(direction), 1)
                               : *TCMarshalableNodeCreator().CreateNode(object, 0, short(direction), 1));
        if (direction != MARSHALLING_REPLY || next == reply.GetChildren().end())
            continue;
        if (object == nullptr)
            DefaultNodeCreator().FillElement(plain, std::size_t(width), std::size_t(width), *next++);
        else
            object->TreeToClass(std::get<TCTreeBranch>(next++->value));
    }
    Record() << number << ' ' << method << '(' << Show(pushed) << ')'
             << (connection == nullptr ? " without connection" : "")
             << (interfaceName == kInterface && !reserved ? "" : " of " + interfaceName);
    if (outcome == '!')
        throw std::runtime_error("bro\nken");
    if (outcome == '?')
        throw text;
    return outcome == '+';
}

void _TCApiAssert(const char* expression, const char* path, unsigned long line, const char* message)
{
    Record() << expression << ' ' << path << ' ' << line << (message == nullptr ? "" : message);
}

namespace
{

// Each request in the file is an operation and the values of a reply. Its answer is the call that the proxy makes, then
// result, text and value when the call succeeds with that reply, fails with it, fails without one, succeeds without one.
TEST(Proxy, MakesEachCallAndReturnsItsReply)
{
    TSMenuItem item;
    item.setName("Tuner");
    item.setState(true);
    item.setID(7);
    std::string text;
    std::int32_t value = 0;
    TakeRecord();
    auto proxy = std::make_unique<TCDebugPrintControlProxy>(kInterface);
    EXPECT_EQ(TakeRecord(), "com.kavrin.TVService.SignalIFace /com/kavrin/TVService/SignalObject 1");
    std::map<std::string, std::function<std::int32_t()>> operations = {
        {"Start", [&] { return proxy->Start(text); }},
        {"Execute", [&] { return proxy->Execute("03", text); }},
        {"Stop", [&] { return proxy->Stop(); }},
        {"Check", [&] { return proxy->Check(value); }},
        {"GetMenuItems", [&] { return std::int32_t(proxy->GetMenuItems().size()); }},
        {"SetMenuItems", [&] { return proxy->SetMenuItems({item}); }},
        {"SetMenuItem", [&] { return proxy->SetMenuItem(item); }},
        {"SetQoSEnabled", [&] { return proxy->SetQoSEnabled(true); }},
        {"IsQoSEnabled", [&] { return proxy->IsQoSEnabled(); }},
        {"SetDebugMode", [&] { return proxy->SetDebugMode(EDebugMode(77), false); }},
        {"IsDebugModeEnabled", [&] { return proxy->IsDebugModeEnabled(DEBUG_MODE_PERFORMANCE); }},
    };
    ExpectExchanges(
        "proxy", {std::begin(kDebugPrintMethodNames), std::end(kDebugPrintMethodNames)}, [&](auto& request) {
            const std::string name = request.substr(0, request.find(' ')), reply = request.substr(name.size());
            EXPECT_EQ(operations.count(name), 1U) << "this test has no call for " << name;
            std::string called, results;
            for (const std::string& outcome : {"+" + reply, "-" + reply, std::string("-"), std::string("+")}) {
                outcomes = std::stringstream(outcome);
                text = "old";
                value = 5;
                const std::int32_t result = operations.at(name)();
                results += " | " + std::to_string(result) + " " + text + " " + std::to_string(value);
                called = TakeRecord();
            }
            return called + results;
        });
    proxy = nullptr;
    EXPECT_EQ(TakeRecord(), "closed");
    EXPECT_EQ(TCDebugPrintControlProxy(kInterface, nullptr).Stop(), -1);
    EXPECT_EQ(TakeRecord(), "m_pTVSConnection src/debugutil/DebugPrintControlProxy 20"
                            "ASSERT!!! - function TCDebugPrintControlProxy, line 20"
                            "2 Stop(0:u4294967295) without connection");
}

TEST(MarshalableString, KeepsEveryByteAndAssertsWithoutAString)
{
    std::string sent("a\0b", 3), received;
    TCMarshalableString string(&sent), unbound(nullptr);
    TCTreeBranch branch, nothing;
    unsigned long size = 9;
    TakeRecord();
    EXPECT_FALSE(unbound.ClassToTree(nothing) || unbound.TreeToClass(nothing) || unbound.GetSizeOfMarshalled(size));
    const std::string source = "m_data /usr/include/tvs-api-internal/MarshalableString ";
    EXPECT_EQ(TakeRecord() + Show(nothing) + std::to_string(size), source + "72" + source + "93" + "9");
    EXPECT_TRUE(string.ClassToTree(branch) && TCMarshalableString(&received).TreeToClass(branch));
    EXPECT_TRUE(string.GetSizeOfMarshalled(size));
    EXPECT_EQ(received + std::to_string(size), sent + "3");
}

TEST(Shell, FollowsTheResultsOfRemoteCallsAndReportsTheirExceptions)
{
    outcomes = std::stringstream(ReadFile(EXCHANGES_PATH "/shell.replies"));
    static std::istringstream words("1 1 1 1 003 +3\nx\ty\xC3\xA4\xFF\" 1 99 1 3 1");
    std::cin.rdbuf(words.rdbuf());
    TakeRecord();
    TCDebugUtil::StartMenu();
    EXPECT_TRUE(MatchesRecord(EXCHANGES_PATH "/shell.record", FoldMenus(TakeRecord())));
}

} // namespace
