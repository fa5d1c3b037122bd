#include "support/Session.h"

#include "host/simulator/Signals.h"
#include "host/simulator/Simulator.h"
#include "support/Access.h"
#include "support/ConsoleScope.h"
#include "support/Match.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace
{

// Any call except those that release something.
const std::string
    kSendingCall(R"(\n(?!TVServiceAPI::Destroy|IPipelineUtility::(CheckPending|Unregister)|TCM\S*, "Stop"))"
                 R"((TVServiceAPI|TCM|I[A-Z])\w+::\w+\()");

// How many calls of the operation failed because of a fault.
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
    ConsoleScope scope(std::move(scenario));
    scope.onWord = [](const std::string& word) { std::cout << WordByWord::Shown(word) << std::flush; };
    scope.Type(words + "\n");
    *TSTestAccess::exitDebugMenu = false; // the previous session has set it
    TCDebugUtil::StartMenu();

    host::SignalHub& hub = host::SignalHub::Instance();
    hub.Unsubscribe(TCDebugUtil::SignalReceivedCallback); // row 4 of the TVS debug menu subscribes until row 5
    const std::size_t subscriptions = hub.UnsubscribeAll();
    Session session{scope.TakeRecord(), "", {}};
    const auto& calls = host::Host::Instance().calls;
    std::copy(calls.begin(), calls.end(), session.calls.begin());
    if (host::Simulator::Instance().controls.size() != FailuresOf(host::Op::TVServiceAPI_Destroy))
        session.problems += "an object was not released\n";
    if (session.record.find("\nTVServiceAPI::Destroy(unknown)") != std::string::npos)
        session.problems += "an object was released twice\n";
    if (subscriptions > FailuresOf(host::Op::TVServiceAPI_DestroySignalSubscriber))
        session.problems += "a subscription was not released\n";
    const std::size_t end = session.record.find(WordByWord::Shown(""));
    if (end != std::string::npos && !Matches(session.record.substr(end), kSendingCall).empty())
        session.problems += "a call was made after the end of the input\n";
    return session;
}
