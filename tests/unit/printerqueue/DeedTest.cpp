#include <gmock/gmock.h>

#include "standins/PrinterQueue/Deed.h"

using printerqueue::AddLastingDeed;
using printerqueue::Deed;
using printerqueue::DeedKind;
using printerqueue::FindDeed;
using printerqueue::Ledger;
using printerqueue::PortKind;
using printerqueue::ReadLedger;
using printerqueue::WriteLedger;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Deed portMade{
    .kind = DeedKind::PortMade,
    .name = L"10.0.0.1",
    .port = {
        .kind = PortKind::Lpr, .name = L"10.0.0.1", .host = L"loom", .number = 515, .lprQueue = L"</LPR>"}};
const Deed queueChanged{.kind = DeedKind::QueueChanged,
                        .name = L"Front \"desk\"",
                        .before = {.name = L"Front \"desk\"", .port = L"LPT1:", .driver = L"Old <1>"},
                        .after = {.name = L"Front \"desk\"",
                                  .port = L"10.0.0.1",
                                  .driver = L"New",
                                  .location = L"B\u00fcro 100 %",
                                  .comment = L"\u65e5\u672c",
                                  .shareName = L"front",
                                  .attributes = 8}};
const Deed defaultChanged{.kind = DeedKind::DefaultChanged, .name = L"New", .former = L"Old"};

TEST(LedgerTest, ComesBackFromItsText) {
    const Ledger ledger{
        .lasting = {portMade, {.kind = DeedKind::DriverMade, .name = L"D", .infPath = L"C:\\d.inf"}},
        .owner = L"{2}",
        .runId = L"{1}",
        .runRemoves = true,
        .run = {queueChanged, defaultChanged},
        .lastingBefore = {{.kind = DeedKind::ConnectionMade, .name = L"\\\\server\\printer"}},
        .ownerBefore = L"{0}"};
    EXPECT_EQ(ReadLedger(WriteLedger(ledger)), ledger);
}

TEST(LedgerTest, IsEmptyForATextThatIsNone) {
    EXPECT_EQ(ReadLedger(L""), Ledger{});
    EXPECT_EQ(ReadLedger(L"<LASTING><DEED></LASTING>"), Ledger{});
    EXPECT_EQ(ReadLedger(L"<LASTING>%lDEED>%lKIND>queue eaten%l/KIND>%l/DEED></LASTING>"), Ledger{});
}

TEST(DeedTest, IsFoundByKindAndNameInAnyCase) {
    const std::vector<Deed> deeds = {portMade, queueChanged};
    EXPECT_EQ(FindDeed(deeds, DeedKind::QueueChanged, L"FRONT \"DESK\""), &deeds[1]);
    EXPECT_EQ(FindDeed(deeds, DeedKind::QueueMade, L"Front \"desk\""), nullptr);
}

TEST(LastingDeedTest, IsKeptOnce) {
    std::vector<Deed> lasting;
    AddLastingDeed(lasting, portMade);
    AddLastingDeed(lasting, portMade);
    EXPECT_THAT(lasting, ElementsAre(portMade));
}

TEST(LastingDeedTest, LeavesAQueueOfThePackageItsOwn) {
    Deed made{.kind = DeedKind::QueueMade, .name = queueChanged.name, .after = queueChanged.before};
    std::vector<Deed> lasting = {made};
    AddLastingDeed(lasting, queueChanged);
    made.after = queueChanged.after;
    EXPECT_THAT(lasting, ElementsAre(made));
}

TEST(LastingDeedTest, KeepsTheFirstStateOfAQueueThatIsChangedTwice) {
    std::vector<Deed> lasting = {queueChanged};
    Deed again = queueChanged;
    again.before = queueChanged.after;
    again.after.port = L"10.0.0.2";
    AddLastingDeed(lasting, again);
    ASSERT_EQ(lasting.size(), 1U);
    EXPECT_EQ(lasting[0].before, queueChanged.before);
    EXPECT_EQ(lasting[0].after, again.after);
}

TEST(LastingDeedTest, KeepsTheFirstDefaultUnlessTheUserHasChosenAnother) {
    std::vector<Deed> lasting = {defaultChanged};
    AddLastingDeed(lasting, {.kind = DeedKind::DefaultChanged, .name = L"Newer", .former = L"New"});
    EXPECT_EQ(lasting[0].former, L"Old");
    EXPECT_EQ(lasting[0].name, L"Newer");
    AddLastingDeed(lasting, {.kind = DeedKind::DefaultChanged, .name = L"Newest", .former = L"Chosen"});
    EXPECT_EQ(lasting[0].former, L"Chosen");
    EXPECT_EQ(lasting.size(), 1U);
}

}  // namespace
