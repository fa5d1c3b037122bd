#include "support/Session.h"

#include "debugutil/DebugUtil.h"
#include "host/simulator/Signals.h"
#include "host/simulator/Simulator.h"
#include "support/Match.h"
#include "support/Television.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace
{

// A call that is none of those that leave.
const std::string kSends(R"(\n(?!TVServiceAPI::Destroy|IPipelineUtility::(CheckPending|Unregister)|TCM\S*, "Stop"))"
                         R"((TVServiceAPI|TCM|I[A-Z])\w+::\w+\()");

// Of the operation's calls those that a fault kept from their work.
std::size_t FailuresOf(host::Op operation)
{
    const host::Host& host = host::Host::Instance();
    std::size_t failures = 0;
    for (unsigned call = host.calls[static_cast<std::size_t>(operation)]; call > 0; --call) {
        const host::Fault fault = host.scenario.FaultOf(operation, call);
        failures += fault.thrown || (fault.result && !fault.object) ? 1 : 0;
    }
    return failures;
}

} // namespace

Session PlaySession(host::Scenario scenario, const std::string& words)
{
    setenv("DEBUGMENU_SYSROOT", SYSROOT_PATH, 1);
    Television television(std::move(scenario));
    television.onWord = [](const std::string& word) { std::cout << WordByWord::Told(word) << std::flush; };
    television.Type(words + "\n");
    TCDebugUtil::m_exitDebugMenu = false; // by the session before
    TCDebugUtil::StartMenu();

    host::SignalHub& hub = host::SignalHub::Instance();
    hub.Unsubscribe(TCDebugUtil::SignalReceivedCallback); // the monitor may stay
    const std::size_t subscriptions = hub.UnsubscribeAll();
    Session session{television.TakeRecord(), "", {}};
    const auto& calls = host::Host::Instance().calls;
    std::copy(calls.begin(), calls.end(), session.calls.begin());
    if (host::Simulator::Instance().controls.size() != FailuresOf(host::Op::TVServiceAPI_Destroy))
        session.wrong += "an object is left\n";
    if (session.record.find("\nTVServiceAPI::Destroy(unknown)") != std::string::npos)
        session.wrong += "an object was released twice\n";
    if (subscriptions > FailuresOf(host::Op::TVServiceAPI_DestroySignalSubscriber))
        session.wrong += "a subscription is left\n";
    const std::size_t end = session.record.find(WordByWord::Told(""));
    if (end != std::string::npos && !Matches(session.record.substr(end), kSends).empty())
        session.wrong += "something was called behind the end of the input\n";
    return session;
}
