#include "support/FakeService.h"

#include "host/messaging/ServiceBus.h"
#include "support/Trees.h"

FakeService::FakeService(const std::string& address, std::vector<std::string> answers) : m_answers(std::move(answers))
{
    host::Bus bus = host::OpenServiceBus(address);
    host::Checked(sd_bus_add_filter(bus.get(), nullptr, OnMessage, this));
    host::Checked(sd_bus_request_name(bus.get(), "com.kavrin.TVService", 0));
    m_thread = std::thread([this, bus = std::move(bus)] {
        while (!m_done && sd_bus_process(bus.get(), nullptr) >= 0)
            sd_bus_wait(bus.get(), 1'000); // then it looks whether it is over
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
    if (sd_bus_message_is_method_call(message, "com.kavrin.IDebugPrintControl", nullptr) <= 0)
        return 0;
    std::int16_t number = -1;
    host::Checked(sd_bus_message_read_basic(message, 'n', &number));
    TCTreeBranch values;
    values.GetChildren() = host::ReadValues(message);
    service.m_received += sd_bus_message_get_path(message) + (' ' + std::to_string(number)) + ' ' +
                          sd_bus_message_get_member(message) + '(' + Show(values) + ")\n";
    if (service.m_next == service.m_answers.size())
        service.m_done = true;
    if (service.m_done)
        return 1;
    const std::string& answer = service.m_answers[service.m_next++];
    sd_bus_message* made = nullptr;
    host::Checked(sd_bus_message_new_method_return(message, &made));
    const host::BusMessage reply(made);
    host::AppendValues(made, Branch(answer).GetChildren());
    if (answer.find('+') != std::string::npos)
        host::Checked(sd_bus_message_append(made, "u", 1));
    return host::Checked(sd_bus_send(nullptr, made, nullptr));
}
