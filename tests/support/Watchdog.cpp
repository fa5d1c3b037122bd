// Part of every test program: what hangs or spins inside a test ends the program, where the test's own patience with
// other programs does not see it.
#include "support/Process.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace
{

class Watchdog : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override { alarm(static_cast<unsigned>(2 * Patience().count())); }
};

[[maybe_unused]] const bool g_watches = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);
    return true;
}();

} // namespace
