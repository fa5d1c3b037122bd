#include "host/messaging/DebugPrintService.h"

#include "debugmenu/DebugMenuUtility.h"
#include "tvs-api/Types.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>
#include <numeric>
#include <stdexcept>

namespace host
{
namespace
{

using Item = DebugPrintService::Item;
using State = DebugPrintService::State;
using Values = std::vector<TCTreeNode>;

constexpr std::uint32_t kExit = 99;
constexpr short kElementTag = -1;
constexpr std::size_t kMaxNameBytes = 16U << 20; // of all items together; a reply has space for more

// In the order in which the menu shows them.
constexpr std::pair<std::uint32_t, const char*> kDebugModes[] = {
    {DEBUG_MODE_PRINT, "print"}, {DEBUG_MODE_SIGNAL, "signal"}, {DEBUG_MODE_PERFORMANCE, "performance"}};

// The first value of an item has the tag 0. The tags of the values of a reply are not sent.
TCTreeNode TextNode(const std::string& text)
{
    TCTreeBranch branch;
    branch.AppendChild({0, static_cast<std::uint32_t>(text.size())});
    if (!text.empty())
        branch.AppendChild({1, TCTreeNode::Bytes(text.begin(), text.end())});
    return {0, std::move(branch)};
}

TCTreeNode Number(std::uint32_t number) { return {0, number}; }

TCTreeNode Flag(bool on) { return {0, static_cast<std::uint8_t>(on)}; }

const char* OnOff(bool on) { return on ? "on" : "off"; }

/// Reads the values of a request in order. Throws std::invalid_argument for a missing value and a wrong type or tag.
class RequestReader
{
public:
    /// The tag of a value is its position, the tag of a list element is kElementTag.
    enum Tags { POSITIONS, ELEMENTS };
    explicit RequestReader(const std::vector<TCTreeNode>& values, Tags tags = POSITIONS)
        : m_values(values), m_tags(tags)
    {
    }

    template <class T> const T& Take()
    {
        const int tag = m_tags == ELEMENTS ? kElementTag : static_cast<int>(m_next);
        const TCTreeNode* node = m_next < m_values.size() ? &m_values[m_next++] : nullptr;
        const auto* value = node == nullptr || node->tag != tag ? nullptr : std::get_if<T>(&node->value);
        if (value == nullptr)
            throw std::invalid_argument("a value has another form");
        return *value;
    }

    std::string TakeText()
    {
        const auto& branch = Take<TCTreeBranch>();
        RequestReader parts(branch.GetChildren());
        const auto length = parts.Take<std::uint32_t>();
        const auto bytes = length == 0 ? TCTreeNode::Bytes() : parts.Take<TCTreeNode::Bytes>();
        parts.End();
        if (bytes.size() != length)
            throw std::invalid_argument("a text has another length");
        return {bytes.begin(), bytes.end()};
    }

    bool HasMore() const { return m_next < m_values.size(); }

    void End() const
    {
        if (HasMore())
            throw std::invalid_argument("more values than the method takes");
    }

private:
    const std::vector<TCTreeNode>& m_values;
    Tags m_tags;
    std::size_t m_next = 0;
};

Item ReadItem(RequestReader& request)
{
    const auto& branch = request.Take<TCTreeBranch>();
    RequestReader parts(branch.GetChildren());
    Item item;
    item.name = parts.TakeText();
    item.on = parts.Take<std::uint8_t>() != 0;
    item.id = parts.Take<std::uint32_t>();
    parts.End();
    return item;
}

// Throws std::invalid_argument if the names are too long for a reply.
void SetItems(State& state, std::vector<Item> items)
{
    const auto bytes = std::accumulate(items.begin(), items.end(), std::size_t{0},
                                       [](std::size_t sum, const Item& item) { return sum + item.name.size(); });
    if (bytes > kMaxNameBytes)
        throw std::invalid_argument("the names are too long for an answer");
    state.items = std::move(items);
}

std::string Screen(const State& state)
{
    const std::string thick = TCDebugMenuUtility::thickLine, thin = TCDebugMenuUtility::thinLine;
    std::string screen = thick + "\t[TV Service Debug Print]\t\n" + thin;
    for (const Item& item : state.items)
        screen += " " + std::to_string(item.id) + ". " + item.name + " [" + OnOff(item.on) + "]\n";
    screen += thin + " QoS: " + OnOff(state.qos) + "\n";
    for (const auto& [mode, name] : kDebugModes)
        screen += std::string(" Debug mode ") + name + ": " + OnOff(state.debugModes.count(mode) > 0) + "\n";
    return screen + thin + " 99 : Exit\n" + thick + "tvs> ";
}

Values Start(State& state, RequestReader& request)
{
    request.End();
    return {Number(1), TextNode(Screen(state))};
}

Values Execute(State& state, RequestReader& request)
{
    const std::string word = request.TakeText();
    request.End();
    std::uint32_t id{};
    const auto [stop, error] = std::from_chars(word.data(), word.data() + word.size(), id);
    const bool isNumber = error == std::errc{} && stop == word.data() + word.size();
    if (isNumber && id == kExit)
        return {Number(0), TextNode("")};
    const auto item = std::find_if(state.items.begin(), state.items.end(),
                                   [&](const Item& candidate) { return isNumber && candidate.id == id; });
    if (item == state.items.end())
        return {Number(1), TextNode("Not an item of this menu\n" + Screen(state))};
    item->on = !item->on;
    return {Number(1), TextNode(Screen(state))};
}

Values Stop(State& /*state*/, RequestReader& request)
{
    request.End();
    return {Number(1)};
}

// The check value is the number of items that are on.
Values Check(State& state, RequestReader& request)
{
    request.End();
    const auto printing =
        std::count_if(state.items.begin(), state.items.end(), [](const Item& item) { return item.on; });
    return {Number(1), Number(static_cast<std::uint32_t>(printing))};
}

Values GetMenuItems(State& state, RequestReader& request)
{
    request.End();
    TCTreeBranch list;
    for (const Item& item : state.items) {
        TCTreeBranch branch;
        branch.AppendChild(TextNode(item.name));
        branch.AppendChild({1, static_cast<std::uint8_t>(item.on)});
        branch.AppendChild({2, item.id});
        list.AppendChild({kElementTag, std::move(branch)});
    }
    return {Number(1), {0, std::move(list)}};
}

Values SetMenuItems(State& state, RequestReader& request)
{
    const auto& list = request.Take<TCTreeBranch>();
    request.End();
    std::vector<Item> items;
    for (RequestReader elements(list.GetChildren(), RequestReader::ELEMENTS); elements.HasMore();)
        items.push_back(ReadItem(elements));
    SetItems(state, std::move(items));
    return {Number(1)};
}

Values SetMenuItem(State& state, RequestReader& request)
{
    const Item changed = ReadItem(request);
    request.End();
    std::vector<Item> items = state.items;
    const auto item =
        std::find_if(items.begin(), items.end(), [&](const Item& candidate) { return candidate.id == changed.id; });
    if (item == items.end())
        return {Number(0)};
    *item = changed;
    SetItems(state, std::move(items));
    return {Number(1)};
}

Values SetQoSEnabled(State& state, RequestReader& request)
{
    const bool on = request.Take<std::uint8_t>() != 0;
    request.End();
    state.qos = on;
    return {Number(1)};
}

Values IsQoSEnabled(State& state, RequestReader& request)
{
    request.End();
    return {Flag(state.qos)};
}

Values SetDebugMode(State& state, RequestReader& request)
{
    const auto mode = request.Take<std::uint32_t>();
    const bool on = request.Take<std::uint8_t>() != 0;
    request.End();
    const bool known = std::any_of(std::begin(kDebugModes), std::end(kDebugModes),
                                   [mode](const auto& entry) { return entry.first == mode; });
    if (known && on)
        state.debugModes.insert(mode);
    else if (known)
        state.debugModes.erase(mode);
    return {Number(known ? 1 : 0)};
}

Values IsDebugModeEnabled(State& state, RequestReader& request)
{
    const auto mode = request.Take<std::uint32_t>();
    request.End();
    return {Flag(state.debugModes.count(mode) > 0)};
}

constexpr Values (*kMethods[])(State&, RequestReader&) = {
    Start,              // 0
    Execute,            // 1
    Stop,               // 2
    Check,              // 3
    GetMenuItems,       // 4
    SetMenuItems,       // 5
    SetMenuItem,        // 6
    SetQoSEnabled,      // 7
    IsQoSEnabled,       // 8
    SetDebugMode,       // 9
    IsDebugModeEnabled, // 10
};
static_assert(std::size(kMethods) == std::size(kDebugPrintMethodNames),
              "each name has a method, in the order of the numbers");

} // namespace

DebugPrintService::DebugPrintService()
{
    m_state.items = {{"Tuner", false, 1}, {"Source", false, 2},       {"Video", false, 3},
                     {"Audio", false, 4}, {"Service list", false, 5}, {"Programme guide", false, 6}};
}

void DebugPrintService::Serve(sd_bus* bus)
{
    std::vector<sd_bus_vtable> table = {SD_BUS_VTABLE_START(0)};
    for (const char* method : kDebugPrintMethodNames)
        table.push_back(SD_BUS_METHOD_WITH_NAMES(method, "nav", SD_BUS_PARAM(number) SD_BUS_PARAM(request), "av",
                                                 SD_BUS_PARAM(reply), m_OnCall, SD_BUS_VTABLE_UNPRIVILEGED));
    table.push_back(SD_BUS_VTABLE_END);
    sd_bus_slot* added = nullptr;
    Checked(sd_bus_add_object_vtable(bus, &added, kServiceObjectPath, kDebugPrintInterface, table.data(), this));
    const BusSlot slot(added); // destroyed before the table, which it uses
    while (sd_bus_is_open(bus) > 0) {
        const int processed = sd_bus_process(bus, nullptr);
        if (processed < 0 || (processed == 0 && WaitForBus(bus, UINT64_MAX) < 0))
            break; // the connection has ended
    }
}

int DebugPrintService::m_OnCall(sd_bus_message* message, void* service, sd_bus_error* error)
{
    try {
        std::uint16_t number = 0;
        Checked(sd_bus_message_read_basic(message, 'n', &number));
        if (number >= std::size(kMethods))
            throw std::invalid_argument("no method has that number");
        if (std::strcmp(kDebugPrintMethodNames[number], sd_bus_message_get_member(message)) != 0)
            throw std::invalid_argument("the number is not the method's");
        const Values values = ReadValues(message);
        RequestReader request(values);
        const Values answer = kMethods[number](static_cast<DebugPrintService*>(service)->m_state, request);

        sd_bus_message* made = nullptr;
        Checked(sd_bus_message_new_method_return(message, &made));
        const BusMessage reply(made);
        AppendValues(made, answer);
        return Checked(sd_bus_send(nullptr, made, nullptr));
    } catch (const std::exception& exception) {
        return sd_bus_error_set(error, SD_BUS_ERROR_INVALID_ARGS, exception.what());
    }
}

} // namespace host
