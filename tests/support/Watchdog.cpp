// Linked into every test program. Ends the program when a test hangs in its own process. (Process only limits the time
// that a test waits for another program.)
#include "support/Process.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace
{

class Watchdog : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override { alarm(static_cast<unsigned>(2 * ReplyTimeout().count())); }
};

[[maybe_unused]] const bool g_installed = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);
    return true;
}();

} // namespace
