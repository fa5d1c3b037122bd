// The proxy and the shell's remote half on a messaging that only records: what a set's is handed.
#include "debugutil/DebugUtil.h"
#include "support/Screens.h"
#include "support/Trees.h"
#include "tvs-api-internal/Diagnostics.h"

#include <deque>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <sstream>

namespace
{

const std::string kInterface = "com.kavrin.IDebugPrintControl";

// Calls and console, in their order. What goes on printing without an end is ended here.
class RecordBuffer : public std::stringbuf
{
    std::streamsize xsputn(const char* text, std::streamsize size) override
    {
        return ++m_writes < 10'000 ? std::stringbuf::xsputn(text, size) : throw std::length_error("prints without end");
    }
    int m_writes = 0;
};

// Calls come before main and after it, too.
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

enum EOutcome { FAILS, SUCCEEDS, THROWS };
std::deque<std::pair<EOutcome, std::string>> plays; // how each call goes, and what its reply fills

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
    TCTreeBranch pushed; // the direction stands where the tag does
    for (const auto& [direction, width, plain, object] : m_values)
        pushed.AppendChild(object == nullptr
                               ? *DefaultNodeCreator().CreateNode(plain, std::size_t(width), short(direction), 1)
                               : *TCMarshalableNodeCreator().CreateNode(object, 0, short(direction), 1));
    Record() << number << ' ' << method << '(' << Show(pushed) << ')' << (connection == nullptr ? " nowhere" : "")
             << (interfaceName == kInterface && !reserved ? "\n" : " of " + interfaceName);
    const auto [outcome, text] = plays.empty() ? std::pair(FAILS, std::string()) : plays.front();
    plays.erase(plays.begin(), plays.empty() ? plays.end() : plays.begin() + 1);
    if (outcome == THROWS && !text.empty())
        throw text;
    if (outcome == THROWS)
        throw std::runtime_error("bro\nken");
    TCTreeBranch reply = Branch(text);
    auto next = reply.GetChildren().begin();
    for (const auto& [direction, width, plain, object] : m_values) {
        if (direction != MARSHALLING_REPLY || next == reply.GetChildren().end())
            continue;
        if (object == nullptr)
            DefaultNodeCreator().FillElement(plain, std::size_t(width), std::size_t(width), *next++);
        else
            object->TreeToClass(std::get<TCTreeBranch>(next++->value));
    }
    return outcome == SUCCEEDS;
}

void _TCApiAssert(const char* expression, const char* path, unsigned long line, const char* message)
{
    Record() << expression << ' ' << path << ' ' << line << (message == nullptr ? "" : message);
}

namespace
{

using Proxy = TCDebugPrintControlProxy;

// Each operation with that reply: how it is called, and its results with that reply and success, the reply and failure,
// and without a reply failure and success.
void WalkProxy(std::unique_ptr<Proxy> proxy, const std::string& made, const std::string& end)
{
    TSMenuItem item;
    item.setName("Tuner");
    item.setState(true);
    item.setID(7);
    std::string text;
    std::int32_t value = 0;
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
    EXPECT_EQ(TakeRecord(), made);
    ExpectTalk("proxy.talk", [&](const std::string& said) {
        const std::string name = said.substr(0, said.find(' ')), reply = said.substr(name.size());
        plays = {{SUCCEEDS, reply}, {FAILS, reply}, {FAILS, ""}, {SUCCEEDS, ""}};
        std::string call, results;
        while (!plays.empty()) {
            text = "old";
            value = 5;
            const std::int32_t result = operations[name]();
            results += " | " + std::to_string(result) + " " + text + " " + std::to_string(value);
            call = TakeRecord();
            call.resize(std::min(call.size(), call.rfind(end)));
        }
        return call + results;
    });
}

TEST(Proxy, MakesEachCallAsTheServiceKnowsIt)
{
    TakeRecord();
    WalkProxy(std::make_unique<Proxy>(kInterface),
              "com.kavrin.TVService.SignalIFace /com/kavrin/TVService/SignalObject 1", "\n");
    EXPECT_EQ(TakeRecord(), "closed");
    WalkProxy(std::make_unique<Proxy>(kInterface, nullptr),
              "m_pTVSConnection src/debugutil/DebugPrintControlProxy 20ASSERT!!! - function TCDebugPrintControlProxy, "
              "line 20",
              " nowhere\n");
    EXPECT_EQ(TakeRecord(), "");
}

TEST(MarshalableString, WithoutAStringAssertsAndFails)
{
    TCTreeBranch branch;
    unsigned long size = 9;
    TCMarshalableString unbound(nullptr);
    TakeRecord();
    EXPECT_FALSE(unbound.ClassToTree(branch) || unbound.TreeToClass(branch) || unbound.GetSizeOfMarshalled(size));
    const std::string source = "m_data /usr/include/tvs-api-internal/MarshalableString ";
    EXPECT_EQ(TakeRecord() + Show(branch) + std::to_string(size), source + "72" + source + "93" + "9");
}

TEST(Shell, ReportsExceptionsOfRemoteCallsAndStops)
{
    const auto screen = [](const char* reply) { return std::pair(SUCCEEDS, reply); };
    // The first Start, the second Execute, and Stop: after a menu that was ended, and at the end of the input.
    for (const auto& play :
         {std::pair(THROWS, ""), screen("0:u1 0:[0:u3 1:'a> ']"), screen("0:u2 0:[0:u3 1:'b> ']"),
          std::pair(THROWS, ""), screen(""), screen("0:u1 0:[0:u3 1:'c> ']"), screen("0:u0 0:[0:u3 1:'no>']"),
          std::pair(THROWS, ""), screen("0:u1 0:[0:u3 1:'d> ']"), std::pair(THROWS, "text")})
        plays.emplace_back(play);
    static std::istringstream words("1 1 x y 1 99 1");
    std::cin.rdbuf(words.rdbuf());
    TakeRecord();
    TCDebugUtil::StartMenu();
    const std::string start = kTopMenu + "executing: TVS\n0 Start(0:u4294967295 0:[0:u", failed = "TVS: bro ken\n";
    const std::string execute = "1 Execute(0:u4294967295 1:[0:u", stop = "2 Stop(0:u4294967295)\n";
    EXPECT_EQ(TakeRecord(), "DebugUtil\n" + start + "0])\n" + failed + start + "0])\na> " + execute +
                                "1 1:'x'] 0:[0:u3 1:'a> '])\nb> " + execute + "1 1:'y'] 0:[0:u3 1:'b> '])\n" + failed +
                                stop + start + "3 1:'b> '])\nc> " + execute + "2 1:'99'] 0:[0:u3 1:'c> '])\n" + stop +
                                failed + start + "3 1:'no>'])\nd> " + stop + "TVS: unknown exception\n");
}

} // namespace
