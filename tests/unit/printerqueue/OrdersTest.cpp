#include <gtest/gtest.h>

#include "standins/PrinterQueue/Orders.h"

using printerqueue::Orders;
using printerqueue::Part;
using printerqueue::ReadOrders;
using printerqueue::Task;
using printerqueue::WriteOrders;

namespace {

TEST(OrdersTest, ReachTheirActionWhateverTheyHold) {
    const Orders orders{
        .task = Task::Remove,
        .part = Part::User,
        .runId = L"1-2-3",
        .packageCode = L"{1}",
        .version = L"{2}",
        .wishes = {.driver = L"Loom <1>",
                   .infPath = L"C:\\100 %\\x.inf",
                   .classDrivers = {L"Class; A", L"Class </NAME>"},
                   .location = L"</LOCATION>",
                   .comment = L"19\"",
                   .protocol = L"LPR",
                   .portNumber = L"9101",
                   .lprQueue = L"lp"},
        .printerInfo = L"<DEVICE><PART>user</PART></DEVICE></PRINTER_INFO><TASK>remove</TASK>"};
    EXPECT_EQ(ReadOrders(WriteOrders(orders)), orders);
    EXPECT_EQ(ReadOrders(WriteOrders({})), Orders{});
}

}  // namespace
