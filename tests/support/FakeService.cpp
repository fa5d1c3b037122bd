#include "support/FakeService.h"

#include "host/messaging/ServiceBus.h"
#include "support/Trees.h"

#include <gtest/gtest.h>

FakeService::FakeService(const std::string& address, std::vector<Answer> answers) : m_answers(std::move(answers))
{
    host::Bus bus = host::OpenServiceBus(address);
    host::Checked(sd_bus_add_filter(bus.get(), nullptr, OnMessage, this));
    host::Checked(sd_bus_request_name(bus.get(), "com.kavrin.TVService", 0));
    m_thread = std::thread([this, bus = std::move(bus)] {
        while (!m_done && sd_bus_process(bus.get(), nullptr) >= 0)
            sd_bus_wait(bus.get(), 10'000); // then it looks whether it is over
    });
}

std::string FakeService::End()
{
    m_done = true;
    if (m_thread.joinable())
        m_thread.join();
    return m_received;
}

int FakeService::OnMessage(sd_bus_message* message, void* self, sd_bus_error*)
{
    FakeService& service = *static_cast<FakeService*>(self);
    std::int16_t number = -1;
    if (sd_bus_message_is_method_call(message, "com.kavrin.IDebugPrintControl", nullptr) <= 0)
        return 0;
    EXPECT_GE(sd_bus_message_read_basic(message, 'n', &number), 0);
    service.m_received += sd_bus_message_get_path(message) + (' ' + std::to_string(number)) + ' ' +
                          sd_bus_message_get_member(message) + '(' + Show(host::ReadValues(message)) + ")\n";
    service.m_done = service.m_next == service.m_answers.size();
    if (service.m_done)
        return 1;
    sd_bus_message* made = nullptr;
    EXPECT_GE(sd_bus_message_new_method_return(message, &made), 0);
    const host::BusMessage reply(made);
    EXPECT_GE(service.m_answers[service.m_next++](made), 0);
    EXPECT_GE(sd_bus_send(nullptr, made, nullptr), 0);
    return 1;
}
