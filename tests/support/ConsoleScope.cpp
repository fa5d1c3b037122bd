#include "support/ConsoleScope.h"

#include "host/simulator/Simulator.h"

#include <algorithm>
#include <iostream>
#include <sys/mman.h>
#include <unistd.h>

ConsoleScope::ConsoleScope(host::Scenario scenario)
    : m_record(memfd_create("record", MFD_CLOEXEC)),
      m_path("/proc/self/fd/" + std::to_string(m_record)), m_host{std::move(scenario), {}},
      m_hostBefore(host::Host::Exchange(m_host)), m_before{std::cin.rdbuf(&m_input), std::cout.rdbuf(m_output.rdbuf()),
                                                           std::cerr.rdbuf(m_output.rdbuf())}
{
    m_output.rdbuf()->pubsetbuf(nullptr, 0);
    m_output.open(m_path, std::ios::app);
    m_host.trace.Open(m_path);
    host::Simulator::Instance().Restart();
    std::cin.clear();
}

ConsoleScope::~ConsoleScope()
{
    std::cin.rdbuf(m_before[0]);
    std::cout.rdbuf(m_before[1]);
    std::cerr.rdbuf(m_before[2]);
    std::cin.clear();
    host::Host::Exchange(m_hostBefore);
    host::Simulator::Instance().Restart();
    close(m_record);
}

void ConsoleScope::Type(const std::string& words)
{
    m_typed.str(words);
    std::cin.clear();
}

std::string ConsoleScope::TakeRecord()
{
    std::string text(static_cast<std::size_t>(lseek(m_record, 0, SEEK_END) - m_taken), '\0');
    text.resize(static_cast<std::size_t>(std::max<ssize_t>(pread(m_record, text.data(), text.size(), m_taken), 0)));
    m_taken += static_cast<off_t>(text.size());
    return text;
}
