#include "support/TestBus.h"

void TestBus::Start()
{
    m_daemon.Start(
        {"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address", "--address=" + m_address});
    m_daemon.WaitFor("\n");
}

void TestBus::StartService(Process& service, const std::string& busSetting)
{
    service.Start({SERVICE_PATH}, {{"TVS_BUS", busSetting}});
    service.WaitFor("tvserviced: serving com.kavrin.TVService on " + busSetting + "\n");
}
