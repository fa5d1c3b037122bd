// The trace: one line per platform call.
#pragma once

#include "tvs-api/Query.h"
#include "tvs-api/Records.h"
#include "tvs-api/Services.h"

#include <mutex>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace host
{

/// A text that the trace shows without quotes.
struct Bare {
    const char* word;
};

/// Converts values to the text of the trace.
std::string Show(bool value);
std::string Show(std::string_view text);
std::string Show(const TSTvMode& mode);
std::string Show(const TSRectInfo& rectangle);
std::string Show(const TCCriteriaHelper& criteria);
std::string Show(const TServiceList& services);
std::string Show(const std::vector<int>& ids);
inline std::string Show(const std::string& text) { return Show(std::string_view(text)); }
inline std::string Show(Bare bare) { return bare.word; }
inline std::string Show(const char* text) { return Show(std::string_view(text)); }
inline std::string Show(const TSTvMode* mode) { return mode == nullptr ? "null" : Show(*mode); }
template <class Number, class = std::enable_if_t<std::is_arithmetic_v<Number> || std::is_enum_v<Number>>>
std::string Show(Number value)
{
    return std::to_string(+value);
}

class Trace
{
public:
    Trace() = default;
    ~Trace();
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    /// Opens and truncates the file; "-" is standard error. Throws std::runtime_error with a message of one line.
    void Open(const std::string& path);
    bool IsOpen() const { return m_descriptor >= 0; }
    /// Writes one line. If that fails, prints the error and ends tracing. Any thread.
    void Write(std::string line);

private:
    void m_End(std::size_t written);

    std::mutex m_mutex;
    std::string m_path;
    int m_descriptor = -1;
    bool m_ended = false;
};

} // namespace host
