// A D-Bus daemon of the test's own, with the real TV service on it.
#pragma once

#include "support/Process.h"

#include <string>

class TestBus
{
public:
    TestBus() { Start(); }
    const std::string& Address() const { return m_address; }
    void Start(); ///< again at the same address
    void End() { m_daemon.Kill(); }
    void StartService() { StartService(m_service, m_address); }
    void KillService() { m_service.Kill(); }
    /// The real tvserviced on that bus; when this returns it owns the name.
    static void StartService(Process& service, const std::string& busSetting);

private:
    Process m_daemon;
    std::string m_address = "unix:path=" + m_daemon.Path("bus");
    Process m_service;
};
