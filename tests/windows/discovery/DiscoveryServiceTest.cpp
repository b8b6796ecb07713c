#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>

#include "discovery/DiscoveryService.h"
#include "settings/SettingsFiles.h"
#include "tests/windows/world/NetworkWorld.h"
#include "tests/windows/world/ThreadWatch.h"
#include "wizard/Controller.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr DWORD cancelledCode = 1602;

using DiscoveryServiceTest = NetworkWorld;

TEST_F(DiscoveryServiceTest, CallsTheLibrariesInTheirOrderOverItsLife) {
    AddDevice(L"10.0.0.1");
    AddDevice(L"10.0.0.2");
    Start();
    EXPECT_EQ(Run(), 0u);
    service.reset();
    EXPECT_THAT(CallNames(), ElementsAre(L"Initialize", L"BidiInitialize", L"DiscoverW", L"EnumerateW",
                                         L"EnumerateW", L"BidiExchangeNpaAll", L"BidiExchangeNpaW",
                                         L"BidiExchangeNpaW", L"Uninitialize", L"BidiUninitialize"));
}

TEST_F(DiscoveryServiceTest, ClosesTheLibrariesOnce) {
    Start();
    service->Close();
    const auto isClosed = ElementsAre(L"Initialize", L"BidiInitialize", L"Uninitialize", L"BidiUninitialize");
    EXPECT_THAT(CallNames(), isClosed);
    service->Close();
    service.reset();
    EXPECT_THAT(CallNames(), isClosed);
}

TEST_F(DiscoveryServiceTest, AsksOnAWorkerOfItsOwn) {
    AddDevice(L"10.0.0.1");
    Start();
    Run();
    const std::vector<LibraryCall> calls = Calls();
    EXPECT_EQ(calls[0].thread, calls[1].thread);
    EXPECT_NE(calls[1].thread, calls[2].thread);
    EXPECT_NE(page.deliveringThread, GetCurrentThreadId());
    EXPECT_EQ(controller.ThreadCount(), 0);
}

TEST_F(DiscoveryServiceTest, AsksForRoomFirstAndThenForTheListing) {
    AddDevice(L"10.0.0.1");
    Settings().SetString(Tag::OEMBYTE, L"72");
    Start();
    Run();
    const std::vector<LibraryCall> calls = Calls();
    EXPECT_EQ(calls[3].Argument(L"capacity"), L"1");
    EXPECT_EQ(calls[3].Argument(L"required"), L"0");
    EXPECT_EQ(calls[4].Argument(L"capacity"), L"32");
    EXPECT_EQ(calls[4].Argument(L"document"), L"<CPDATTACHED>0</CPDATTACHED><OEMBYTE>72</OEMBYTE>");
}

TEST_F(DiscoveryServiceTest, LimitsTheListingToTheSeriesOfAPackageOfItsOwnModels) {
    // Values without brand or series say nothing.
    AddDefaults(
        "<UPD>0</UPD><MODEL_NAME>A:One</MODEL_NAME><MODEL_NAME>:x</MODEL_NAME><MODEL_NAME>B:</MODEL_NAME>"
        "<MODEL_NAME>C:Two</MODEL_NAME>");
    LoadDefaults(Settings());
    Start();
    Run();
    EXPECT_EQ(Calls()[3].Argument(L"document"),
              L"<CPDATTACHED>0</CPDATTACHED><SERIESSTRID>One;Two;</SERIESSTRID>");
}

TEST_F(DiscoveryServiceTest, ListsAllSeriesForAnyOtherPackage) {
    AddDefaults("<UPD>2</UPD><MODEL_NAME>A:One</MODEL_NAME>");
    LoadDefaults(Settings());
    Start();
    Run();
    EXPECT_EQ(Calls()[3].Argument(L"document"), L"<CPDATTACHED>0</CPDATTACHED>");
}

TEST_F(DiscoveryServiceTest, DeliversTheRecordsOfItsDevices) {
    AddDevice(L"10.0.0.1", L"<SERIESSTRID>S1</SERIESSTRID><IPNAME>host</IPNAME>");
    AddDevice(L"10.0.0.2");
    Script({L"reply", L"10.0.0.1:color;"});
    Start();
    EXPECT_EQ(Run(), 0u);
    ASSERT_EQ(page.delivered.size(), 2u);
    EXPECT_EQ(page.delivered.front().series, L"S1");
    EXPECT_EQ(page.delivered.front().hostName, L"host");
    EXPECT_EQ(page.delivered.front().colour, L"color");
    EXPECT_EQ(page.delivered.back().colour, L"");
    EXPECT_EQ(page.nothingFound, 0);
    EXPECT_THAT(BasicMessages(),
                ElementsAre(L"Discovering network devices.", L"Found device with IP address 10.0.0.1",
                            L"Found device with IP address 10.0.0.2"));
    EXPECT_THAT(AdvancedMessages(), Contains(L"DiscoveryService::DoDiscovery() Start"));
    EXPECT_THAT(AdvancedMessages(), Contains(L"DiscoveryService::DoDiscovery() Complete errorCode= 0"));
}

TEST_F(DiscoveryServiceTest, TellsThatNothingWasFoundAndDeliversTheEmptyList) {
    Start();
    EXPECT_EQ(Run(), 0u);
    EXPECT_EQ(page.nothingFound, 1);
    EXPECT_THAT(page.deliveries, ElementsAre(IsEmpty()));
    EXPECT_THAT(BasicMessages(), ElementsAre(L"Discovering network devices.", L"No printer found."));
    EXPECT_THAT(CallNames(), Not(Contains(L"BidiExchangeNpaAll")));
}

TEST_F(DiscoveryServiceTest, KeepsMultiFunctionDevicesForACallerThatWantsFax) {
    page.message = L"FAX";
    AddDevice(L"10.0.0.1");
    AddDevice(L"10.0.0.2", L"<aioModelName>x</aioModelName>");
    Start();
    Run();
    EXPECT_THAT(page.deliveries, ElementsAre(ElementsAre(L"10.0.0.2")));
    EXPECT_THAT(BasicMessages(), Contains(L"Found device with IP address 10.0.0.1"));
}

TEST_F(DiscoveryServiceTest, TellsThatAllDevicesWereFilteredOut) {
    page.message = L"SCANNER";
    AddDevice(L"10.0.0.1");
    Start();
    Run();
    EXPECT_EQ(page.nothingFound, 1);
    EXPECT_EQ(BasicMessages().back(), L"No filtered printer found.");
}

TEST_F(DiscoveryServiceTest, ForgetsItsDevicesWhenAListingIsEmpty) {
    AddDevice(L"10.0.0.1");
    Script({L"run"});
    Start();
    Run();
    Run();
    EXPECT_THAT(page.deliveries, ElementsAre(ElementsAre(L"10.0.0.1"), IsEmpty()));
}

TEST_F(DiscoveryServiceTest, ProcessesItsFormerDevicesAgainWhenTheSearchFails) {
    AddDevice(L"10.0.0.1");
    Script({L"run"});
    Script({L"discover", L"return", L"31"});
    Start();
    Run();
    EXPECT_EQ(Run(), 31u);
    EXPECT_THAT(page.deliveries, ElementsAre(ElementsAre(L"10.0.0.1"), ElementsAre(L"10.0.0.1")));
    EXPECT_THAT(AdvancedMessages(), Contains(L"DiscoveryService::DoDiscovery() Complete errorCode= 31"));
}

TEST_F(DiscoveryServiceTest, ProcessesItsFormerDevicesAgainWhenTheListingFails) {
    AddDevice(L"10.0.0.1");
    Script({L"run"});
    AddDevice(L"10.0.0.2");
    Script({L"enumerate", L"return", L"5"});
    Start();
    Run();
    EXPECT_EQ(Run(), 5u);
    EXPECT_THAT(page.deliveries, ElementsAre(ElementsAre(L"10.0.0.1"), ElementsAre(L"10.0.0.1")));
}

TEST_F(DiscoveryServiceTest, AsksForAListingTwiceAtMost) {
    Script({L"enumerate", L"again"});
    Script({L"enumerate", L"required", L"10"});
    Start();
    EXPECT_EQ(Run(), 122u);
    EXPECT_THAT(CallNames(), Contains(L"EnumerateW").Times(2));
}

TEST_F(DiscoveryServiceTest, RefusesAListingThatNoMemoryHolds) {
    AddDevice(L"10.0.0.1");
    Script({L"enumerate", L"required", L"4294967295"});
    Start();
    EXPECT_EQ(Run(), 122u);
    EXPECT_THAT(
        BasicLog(),
        Contains(Record(L"ERROR", L"Sondrix.dll asks for a listing of 4294967295 characters")).Times(1));
}

TEST_F(DiscoveryServiceTest, DropsADocumentThatTheReportedRoomCutsOff) {
    Script({L"listing", std::wstring(L"<IPADDRESS>1</IPADDRESS>\0<IPADDRESS>2</IPADDRESS>", 47)});
    Start();
    Run();
    EXPECT_THAT(page.deliveries, ElementsAre(ElementsAre(L"1")));
}

class MissingSearchExportTest : public NetworkWorld, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(MissingSearchExportTest, FindsWhatItCan) {
    UseLibraries(std::wstring(L"without_") + GetParam(), L"complete");
    AddDevice(L"10.0.0.1");
    Start();
    EXPECT_EQ(Run(), 0u);
    service.reset();
    EXPECT_THAT(CallNames(), Not(Contains(GetParam())));
    EXPECT_EQ(page.deliveries.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Sondrix, MissingSearchExportTest,
                         testing::Values(L"Initialize", L"Uninitialize", L"DiscoverW", L"EnumerateW"));

class MissingQuestionExportTest : public NetworkWorld, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(MissingQuestionExportTest, LeavesTheDevicesAsTheListingHasThem) {
    UseLibraries(L"complete", std::wstring(L"without_") + GetParam());
    AddDevice(L"10.0.0.1");
    Start();
    EXPECT_EQ(Run(), 0u);
    service.reset();
    EXPECT_THAT(CallNames(), Not(Contains(GetParam())));
    EXPECT_THAT(page.deliveries, ElementsAre(ElementsAre(L"10.0.0.1")));
}

INSTANTIATE_TEST_SUITE_P(Quelmar, MissingQuestionExportTest,
                         testing::Values(L"BidiInitialize", L"BidiUninitialize", L"BidiExchangeNpaAll",
                                         L"BidiExchangeNpaW"));

TEST_F(DiscoveryServiceTest, FindsNothingWithoutTheLibraryThatSearches) {
    UseLibraries(L"", L"complete");
    Start();
    EXPECT_EQ(Run(), 0u);
    EXPECT_EQ(page.nothingFound, 1);
    EXPECT_THAT(AdvancedMessages(), Contains(L"DiscoveryService::DoDiscovery() Complete errorCode= 0"));
}

TEST_F(DiscoveryServiceTest, KeepsTheDevicesWithoutTheLibraryThatAsks) {
    UseLibraries(L"complete", L"");
    AddDevice(L"10.0.0.1");
    Start();
    Run();
    EXPECT_THAT(page.deliveries, ElementsAre(ElementsAre(L"10.0.0.1")));
}

TEST_F(DiscoveryServiceTest, DoesNothingMoreOnceItIsCancelled) {
    AddDevice(L"10.0.0.1");
    Start();
    service->Cancel();
    EXPECT_EQ(Run(), cancelledCode);
    EXPECT_EQ(Run(), cancelledCode);
    EXPECT_THAT(CallNames(), ElementsAre(L"Initialize", L"BidiInitialize"));
    EXPECT_THAT(page.deliveries, IsEmpty());
    EXPECT_THAT(BasicMessages(), IsEmpty());
}

// The call during which the cancel comes, and the last one that is made.
class CancelledCallTest : public NetworkWorld,
                          public testing::WithParamInterface<std::pair<const wchar_t*, const wchar_t*>> {};

TEST_P(CancelledCallTest, EndsTheRunAtTheNextTest) {
    const std::wstring gate = ProgramTree::Root().wstring() + L"\\gate";
    const auto [step, lastCall] = GetParam();
    AddDevice(L"10.0.0.1");
    AddDevice(L"10.0.0.2");
    Script(std::wstring(step) == L"device" ? std::vector<std::wstring>{step, L"10.0.0.1", L"untilFile", gate}
                                           : std::vector<std::wstring>{step, L"untilFile", gate});
    Start();
    const ThreadWatch threads;
    service->DoRun();
    for (int waited = 0; waited < 1000 && CallNames().back() != lastCall; ++waited) Sleep(5);
    const std::vector<std::wstring> callsSoFar = CallNames();
    service->Cancel();
    tree.Add(L"gate");
    EXPECT_THAT(ThreadWatch::WaitForAll(), ElementsAre(cancelledCode));
    EXPECT_EQ(callsSoFar.back(), lastCall);
    EXPECT_EQ(CallNames(), callsSoFar);
    EXPECT_THAT(BasicMessages(), Not(Contains(L"Found device with IP address 10.0.0.1")));
    EXPECT_THAT(page.deliveries, IsEmpty());
    EXPECT_EQ(page.nothingFound, 0);
}

INSTANTIATE_TEST_SUITE_P(Calls, CancelledCallTest,
                         testing::Values(std::pair(L"discover", L"DiscoverW"),
                                         std::pair(L"enumerate", L"EnumerateW"),
                                         std::pair(L"colours", L"BidiExchangeNpaAll"),
                                         std::pair(L"device", L"BidiExchangeNpaW")));

TEST_F(DiscoveryServiceTest, LetsRunsFollowOneAnother) {
    const std::wstring gate = ProgramTree::Root().wstring() + L"\\gate";
    AddDevice(L"10.0.0.1");
    Script({L"discover", L"untilFile", gate});
    Script({L"run"});
    AddDevice(L"10.0.0.2");
    Start();
    const ThreadWatch threads;
    service->DoRun();
    service->DoRun();
    EXPECT_EQ(controller.ThreadCount(), 2);
    tree.Add(L"gate");
    ThreadWatch::WaitForAll();
    EXPECT_THAT(page.deliveries, ElementsAre(ElementsAre(L"10.0.0.1"), ElementsAre(L"10.0.0.2")));
    const std::vector<std::wstring> names = CallNames();
    EXPECT_EQ(std::count(names.begin(), names.end(), L"DiscoverW"), 2);
    EXPECT_LT(std::find(names.begin(), names.end(), L"BidiExchangeNpaAll") - names.begin(),
              std::find(names.rbegin(), names.rend(), L"DiscoverW").base() - names.begin());
}

TEST_F(DiscoveryServiceTest, WaitsForItsWorkerBeforeItGoes) {
    const std::wstring gate = ProgramTree::Root().wstring() + L"\\gate";
    Script({L"discover", L"untilFile", gate});
    Start();
    const ThreadWatch threads;
    service->DoRun();
    for (int waited = 0; waited < 1000 && CallNames().back() != L"DiscoverW"; ++waited) Sleep(5);
    tree.Add(L"gate");
    service.reset();
    EXPECT_EQ(page.nothingFound, 1);
    EXPECT_THAT(CallNames(), ElementsAre(L"Initialize", L"BidiInitialize", L"DiscoverW", L"EnumerateW",
                                         L"Uninitialize", L"BidiUninitialize"));
}

// Its user cancels at the last moment.
class CancellingPage : public NotingPage {
public:
    std::wstring GetReceivedMessage() const override {
        service->Cancel();
        return L"FAX";
    }

    DiscoveryService* service = nullptr;
};

TEST_F(DiscoveryServiceTest, SaysNothingBehindACancelThatComesWhileItFilters) {
    CancellingPage cancelling;
    AddDevice(L"10.0.0.1");
    Start(&cancelling);
    cancelling.service = service.get();
    EXPECT_EQ(Run(), cancelledCode);
    EXPECT_THAT(cancelling.deliveries, IsEmpty());
    EXPECT_EQ(cancelling.nothingFound, 0);
}

class FailingPage : public NotingPage {
public:
    std::wstring GetReceivedMessage() const override { throw std::bad_alloc(); }
};

TEST_F(DiscoveryServiceTest, CountsAWorkerThatFailedNoMore) {
    FailingPage failing;
    AddDevice(L"10.0.0.1");
    Start(&failing);
    Run();
    EXPECT_THAT(failing.deliveries, IsEmpty());
    EXPECT_EQ(controller.ThreadCount(), 0);
}

TEST_F(DiscoveryServiceTest, OffersThePrinterDriversInTheirOrder) {
    Settings().SetString(Tag::WIN8_DRVTYPES, L"ONE;SCAN;TWO");
    AddDriver(L"b.msi", L"TWO").properties[L"DRIVERNAME"] = L"Second";
    AddDriver(L"a.msi", L"ONE").properties[L"DRIVERNAME"] = L"First";
    AddDriver(L"s.msi", L"SCAN").properties[L"DRIVERNAME"] = L"Scan";
    BuildCatalogues();
    Start();
    Run();
    EXPECT_EQ(page.drivers.front(), L"(cleared)");
    EXPECT_EQ(page.drivers.size(), 3u);
    EXPECT_THAT(page.drivers, Not(Contains(L"Scan")));
}

TEST_F(DiscoveryServiceTest, OffersNoDriversInARunFromConfiguration) {
    Settings().SetBool(Tag::INSTALL_FROM_CONFIG, true);
    Start();
    Run();
    EXPECT_THAT(page.drivers, IsEmpty());
    EXPECT_EQ(page.deliveries.size(), 1u);
}

TEST_F(DiscoveryServiceTest, StartsNoWorkerWithoutAPage) {
    Start(nullptr);
    EXPECT_EQ(service->DoRun(), 0u);
    EXPECT_EQ(controller.ThreadCount(), 0);
    EXPECT_THAT(CallNames(), ElementsAre(L"Initialize", L"BidiInitialize"));
}

TEST_F(DiscoveryServiceTest, GoesOnWithoutAWorkerThatTheSystemDenies) {
    Start();
    const PatchedImport denied(
        "_beginthreadex",
        +[](void*, unsigned, unsigned(__stdcall*)(void*), void*, unsigned, unsigned*) -> std::uintptr_t {
            return 0;
        });
    EXPECT_EQ(service->DoRun(), 0u);
    EXPECT_EQ(controller.ThreadCount(), 0);
}

}  // namespace
