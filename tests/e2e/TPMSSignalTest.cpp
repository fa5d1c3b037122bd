// Signals of the TPMS menu: printed while it is open, and never after it.
#include "support/Screens.h"
#include "support/Tool.h"

#include <gtest/gtest.h>

namespace
{

TEST(TPMSSignals, ArePrintedWhileTheMenuIsOpen)
{
    Tool tool("[service a]\n12=18446744073709551615\n[service b]\n12=7\n");
    tool.Type("6 18 3 ");
    for (const char* line :
         {"\tSIGNAL_SI_STARTED -> profile:702, screenId: 0, chType:0, srvProfile:0, chNumber:0\n",
          "\tSIGNAL_TUNE_AROUND_SERVICE_DONE -> profile:702, screenId: 0, serviceId: 18446744073709551615\n",
          "\tSIGNAL_TUNE_AROUND_SERVICE_DONE -> profile:702, screenId: 0, serviceId: 7\n",
          "\tSIGNAL_TUNE_AROUND_FINISHED -> profile:702, screenId: 0, completed: true\n"})
        tool.WaitFor(line);
    tool.Type("4 6 ");
    tool.WaitFor("\tSIGNAL_BARKER_CHANNEL_TUNE -> profile:702, screenId: 0, is success:true\n");
    tool.Type("7 3 99 99 ");
    tool.WaitFor(kTopMenu);
    EXPECT_EQ(tool.Finish().status, 0);
}

TEST(TPMSSignals, NeverArriveAfterTheMenu)
{
    std::string input;
    for (int round = 0; round < 1000; ++round)
        input += "6 18 3 6 99 99\n";
    const Outcome outcome = RunTool(input + "6 99 99");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const std::string left = "99 Exit\n====================================\ncmd> ";
    std::size_t rounds = 0, printed = 0;
    for (std::size_t at = 0; (at = outcome.out.find(left, at)) != std::string::npos; ++rounds) {
        at += left.size();
        const std::size_t entered = outcome.out.find('\n', at);
        EXPECT_EQ(outcome.out.compare(at, 11, "executing: "), 0) << outcome.out.substr(at, entered - at);
    }
    for (std::size_t at = 0; (at = outcome.out.find("\tSIGNAL_", at + 1)) != std::string::npos;)
        ++printed;
    EXPECT_EQ(rounds, 1002U);
    EXPECT_GT(printed, 0U);
}

} // namespace
