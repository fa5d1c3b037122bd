// The simulated TV service: results, outputs, state, signals and trace. tests/unit/records has a record for each test.
#include "host/simulator/Signals.h"
#include "support/ConsoleScope.h"
#include "support/Recording.h"
#include "tvs-api-internal/Diagnostics.h"

#include <functional>
#include <glib.h>
#include <gtest/gtest.h>
#include <iostream>

namespace
{

// The controls of one pipeline; the simulator releases them.
struct Controls {
    EProfile profile;
    int screenId;
    ISourceControl* source = Make(TVServiceAPI::CreateSourceControl);
    IZoomControl* zoom = Make(TVServiceAPI::CreateZoomControl);
    IServiceNavigation* navigation = Make(TVServiceAPI::CreateServiceNavigation);

    template <class Interface> Interface* Make(int (*factory)(EProfile, int, Interface**)) const
    {
        Interface* control = nullptr;
        EXPECT_EQ(factory(profile, screenId, &control), 0);
        return control;
    }
};

class Simulator : public testing::Test
{
protected:
    Simulator() { scope.TakeRecord(); }
    void TearDown() override
    {
        const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
        EXPECT_TRUE(MatchesRecord(RECORD_PATH "/" + name, scope.TakeRecord()));
    }

    ConsoleScope scope{host::ParseScenario(
        "(test)", "[tv]\nantenna_mode=1\nservice_mode=2\n"
                  "[service a]\n1=2\n12=4096\n13=5\n25=0\ntitle=Sp\xC3\xA4t\n[service b]\n12=4096\n13=6\n"
                  "[service c]\n1=9\n12=\n13=-5\ntitle=x\n[service d]\n12=18446744073709551615\n13=5\ntitle=\n"
                  "[result]\nTVServiceAPI::DestroySignalSubscriber=7\n[signal]\n61=ff 02\n")};
    const Controls main{PROFILE_MAIN, 0}, pip{PROFILE_PIP, -1};
};

void ExpectAll(int expected, std::initializer_list<int> results)
{
    for (const int result : results)
        EXPECT_EQ(result, expected);
}

int OnSignal(ESignalType type, EProfile profile, unsigned short screenId, TSSignalData data, void*)
{
    std::cout << "signal " << type << " on " << profile << ' ' << screenId << ':';
    for (std::size_t i = 0; i < 9; ++i)
        std::cout << ' ' << int{data.bytes[i]};
    std::cout << std::endl;
    return 0;
}

int OnSignalEnd(ESignalType, EProfile, unsigned short, TSSignalData, void*)
{
    host::SignalHub::Instance().Unsubscribe(OnSignalEnd);
    throw std::runtime_error("ended");
}

// Delivers the signals that have been raised.
void Deliver()
{
    for (int i = 0; i < 100 && g_main_context_iteration(nullptr, FALSE) != FALSE; ++i)
        ;
}

const TSTvMode kCable(ANTENNA_MODE_CABLE, SERVICE_MODE_DTV);

TEST_F(Simulator, TracesReleasesMessagesAndAssertions)
{
    testing::internal::CaptureStderr();
    IReferenceCount* counter = nullptr;
    int count = 0;
    ExpectAll(0, {TVServiceAPI::CreateReferenceCount(PROFILE_MAIN, -1, &counter)});
    ExpectAll(1, {counter->GetReferenceCount(count), count}); // objects of other pipelines do not count
    TVServiceAPI::Destroy(pip.zoom);
    TVServiceAPI::Destroy(pip.zoom); // it is released already
    TCApiPrintMessage("tag %d has %s", 12, "do\n\\\"d\xC3\xA4ta");
    _TCApiAssert("m_data", "a/b", 72, "why");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "tag 12 has do\n\\\"d\xC3\xA4ta\nASSERT m_data at a/b:72: why\n");
}

// Prints the id of a service.
void Show(const TCServiceData& service)
{
    const TCTagSet* tags = service.GetTagSet();
    const TCTag* tag = tags == nullptr ? nullptr : tags->GetTag(12);
    const auto* id = tag == nullptr ? nullptr : static_cast<const std::uint64_t*>(tag->GetData());
    const std::string missing = tags == nullptr ? "no tags" : tag == nullptr ? "no id" : "no data";
    std::cout << (id == nullptr ? missing : std::to_string(*id)) << std::endl;
}

TEST_F(Simulator, FindsServices)
{
    EXPECT_EQ(TCServiceUtility::AntennaModeToDigitalChannelType(ANTENNA_MODE_UNKNOWN), 0);
    using Criteria = TCCriteriaHelper;
    void (*const builders[])(Criteria&) = {
        [](Criteria&) {},
        [](Criteria& c) { TCNavigationModeHelper::GetNavigationCriteria(NAVIGATION_MODE_TV, c, {}), c.Fetch(1); },
        [](Criteria& c) { c.Where(13, 5), c.Fetch(99), c.Fetch(1), c.Fetch(12); },
        [](Criteria& c) { c.Where(13, -5), c.Where(1, 9), c.Fetch(12); },
        [](Criteria& c) { c.Where(12, 4096), c.WhereNot(13, 6), c.Fetch(1); },
        [](Criteria& c) { c.Where(12, 0); },
        [](Criteria& c) { c.Where(7, 0); },
        [](Criteria& c) { c.WhereNot(1, 2), c.WhereNot(12, 0), c.Fetch(12); },
    };
    IService* service = nullptr;
    IServiceGuide* guide = nullptr;
    ExpectAll(0, {TVServiceAPI::CreateService(&service), TVServiceAPI::CreateServiceGuide(&guide)});
    TCServiceData first; // each search replaces the previous result
    for (const auto build : builders) {
        Criteria criteria;
        build(criteria);
        if (service->FindService(criteria, first, 3) == 1)
            Show(first);
        std::list<TCServiceData*> records;
        ExpectAll(1, {main.navigation->FindServices(criteria, records, kCable, 3, 4)});
        for (const TCServiceData* record : records)
            Show(*std::unique_ptr<const TCServiceData>(record));
    }
    for (const auto id : {4096ULL, ~0ULL, 0ULL, 1ULL}) {
        TCProgramData program;
        unsigned short title[4] = {7, 7, 7, 7};
        unsigned length = 3;
        guide->GetProgram(id, program);
        std::cout << program.Title(title, &length) << ' ' << length << ' ' << title[2] << ' ' << title[3] << std::endl;
    }
}

TEST_F(Simulator, RaisesTheSignalsOfTheTuner)
{
    ISignalSubscriber *ended = nullptr, *subscriber = nullptr, *again = nullptr;
    IScanControl* scan = nullptr;
    IPipelineUtility* utility = nullptr;
    ExpectAll(0, {TVServiceAPI::CreateSignalSubscriber(OnSignalEnd, &ended), TVServiceAPI::CreateScanControl(&scan),
                  TVServiceAPI::CreatePipelineUtility(PROFILE_PIP, -1, &utility),
                  TVServiceAPI::CreateSignalSubscriber(OnSignal, &subscriber),
                  TVServiceAPI::CreateSignalSubscriber(OnSignal, &again)});
    EXPECT_EQ(subscriber, again);                    // one subscriber per callback
    TVServiceAPI::DestroySignalSubscriber(OnSignal); // the scenario makes it fail: the callback stays subscribed
    for (const auto type : {59, 60, 61, 81, 193, 194, 195})
        for (ISignalSubscriber* one : {ended, subscriber, again})
            one->AddSignal(static_cast<ESignalType>(type), 0, 1, 0, 0);
    scope.TakeRecord();
    testing::internal::CaptureStderr();
    const auto& source = pip.source;
    const std::function<int()> calls[] = {
        [&] { return source->SetSource(SOURCE_TV, ""); },
        [&] { return source->SetSource(SOURCE_TV, 4096, ""); },
        [&] { return source->SetSource(SOURCE_TV, 0, ""); },
        [&] { return source->SetSource(SOURCE_AV1, 4096, ""); },
        [&] { return source->SetPreviewSource(SOURCE_TV, ""); },
        [&] { return source->SetPreviewSource(SOURCE_TV, 4097, ""); },
        [&] {
            return scan->StartTuneAround({{0x0807060504030201, 5}, {256, 6}}, "a");
        },
        [&] { return scan->StartBarkerChannelScan("b", kCable); },
        [&] { return subscriber->RemoveSignal(SIGNAL_TUNE_START, 1, 0, 0) * source->SetSource(SOURCE_TV, ""); },
    };
    for (const auto& call : calls) {
        TCTPMSStatus status;
        ExpectAll(1, {call(), utility->GetCurrentTPMSStatus(status)});
        const TCPipelineInfo& info = status.pipelines.at({PROFILE_PIP, 65535});
        std::cout << "source " << info.source << " service " << info.serviceId << std::endl;
        Deliver();
    }
    ExpectAll(1, {source->SetSource(SOURCE_TV, "")});
    host::SignalHub::Instance().Unsubscribe(OnSignal);
    Deliver();                                              // no subscriber is left
    TVServiceAPI::CreateSignalSubscriber(OnSignal, &again); // the signals added before are gone
    ExpectAll(1, {source->SetSource(SOURCE_TV, "")});
    Deliver();
    host::SignalHub::Instance().Unsubscribe(OnSignal);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "signal callback: ended\n");
}

} // namespace
