#include <gmock/gmock.h>

#include "CommonLib/Exception.h"
#include "settings/TagDocument.h"
#include "standins/PrinterQueue/PrinterDevice.h"

using printerqueue::DeviceLink;
using printerqueue::PackageWishes;
using printerqueue::PortKind;
using printerqueue::PrinterDevice;
using printerqueue::PrinterPort;
using printerqueue::ReadDevices;
using printerqueue::ReadNames;
using TagDocument::MakeElement;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

const std::wstring named = MakeElement(L"PRINTER_NAME", L"Front desk");
const std::wstring onNetwork = named + MakeElement(L"PORT_TYPE", L"Standard TCP/IP Port");
const std::wstring onLocalPort =
    named + MakeElement(L"PORT_TYPE", L"Local Port") + MakeElement(L"ADD_PORT", L"true");

PrinterDevice ReadOne(const std::wstring& fields, const PackageWishes& wishes = {}) {
    const std::vector<PrinterDevice> devices = ReadDevices(MakeElement(L"DEVICE", fields), wishes);
    EXPECT_EQ(devices.size(), 1U);
    return devices.empty() ? PrinterDevice{} : devices[0];
}

std::wstring ProblemOf(const std::wstring& fields, const PackageWishes& wishes = {}) {
    try {
        ReadDevices(MakeElement(L"DEVICE", fields), wishes);
    } catch (const Exception& exception) {
        return exception.getMessage();
    }
    return L"none";
}

TEST(PrinterDeviceTest, IsReadFromItsElements) {
    const PrinterDevice device =
        ReadOne(onNetwork +
                L"<PORT_NAME>IP_1</PORT_NAME><HOST_NAME>loom-1</HOST_NAME><ADD_PORT>true</ADD_PORT>"
                L"<SET_DEFAULT>true</SET_DEFAULT><LOCATION>Hall</LOCATION><COMMENT>A3</COMMENT>");
    EXPECT_EQ(device, (PrinterDevice{
                          .name = L"Front desk",
                          .link = DeviceLink::Port,
                          .port = {.kind = PortKind::Raw, .name = L"IP_1", .host = L"loom-1", .number = 9100},
                          .makesPort = true,
                          .becomesDefault = true,
                          .location = L"Hall",
                          .comment = L"A3"}));
}

TEST(PrinterDeviceTest, ComesInTheOrderOfTheDocument) {
    const std::vector<PrinterDevice> devices = ReadDevices(
        MakeElement(L"DEVICE", L"<PRINTER_NAME>B</PRINTER_NAME>") + L"<IPADDRESS>10.0.0.9</IPADDRESS>" +
            MakeElement(L"DEVICE", L"<PRINTER_NAME>A</PRINTER_NAME>"),
        {});
    ASSERT_EQ(devices.size(), 2U);
    EXPECT_EQ(devices[0].name, L"B");
    EXPECT_EQ(devices[1].name, L"A");
}

TEST(PrinterDeviceTest, EndsWithItsFirstEndWhateverItHolds) {
    EXPECT_EQ(ReadDevices(L"<DEVICE><PRINTER_NAME>A</PRINTER_NAME><DEVICE></DEVICE>", {}).size(), 1U);
}

TEST(PrinterDeviceTest, IsNotThereInADocumentWithoutAny) {
    EXPECT_THAT(ReadDevices(L"", {}), IsEmpty());
    EXPECT_THAT(ReadDevices(L"<IPADDRESS>10.0.0.9</IPADDRESS>", {}), IsEmpty());
    EXPECT_THAT(ReadDevices(L"</DEVICE><DEVICE>", {}), IsEmpty());
}

TEST(PrinterDeviceTest, TakesTheHostForTheNameOfItsPortAndTheOtherWayRound) {
    EXPECT_EQ(ReadOne(onNetwork + L"<HOST_NAME>loom-1</HOST_NAME>").port.name, L"loom-1");
    EXPECT_EQ(ReadOne(onNetwork + L"<PORT_NAME>10.0.0.1</PORT_NAME>").port.host, L"10.0.0.1");
    EXPECT_EQ(ReadOne(onNetwork + L"<PORT_NAME>P</PORT_NAME><IPADDRESS>10.0.0.1</IPADDRESS>").port.host,
              L"10.0.0.1");
}

TEST(PrinterDeviceTest, IsReachedByTheAddressThatANameOfWindowsSpells) {
    const auto hostOf = [](const std::wstring& host) {
        return ReadOne(onNetwork + MakeElement(L"HOST_NAME", host)).port.host;
    };
    EXPECT_EQ(hostOf(L"2001-db8-77--f.ipv6-literal.net"), L"2001:db8:77::f");
    EXPECT_EQ(hostOf(L"FE80--1s4.IPv6-Literal.net"), L"fe80::1%4");
    EXPECT_EQ(hostOf(L"2001-db8-1111-2222-3333-4444-5555-6666.ipv6-literal.net"),
              L"2001:db8:1111:2222:3333:4444:5555:6666");
    EXPECT_EQ(hostOf(L"loom-1.ipv6-literal.net"), L"loom-1.ipv6-literal.net");
    EXPECT_EQ(hostOf(L"2001:DB8::F"), L"2001:DB8::F");
}

TEST(PrinterDeviceTest, NamesItsPortAsItsHostIsNamed) {
    const std::wstring name = L"2001-db8-77--f.ipv6-literal.net";
    EXPECT_EQ(ReadOne(onNetwork + MakeElement(L"HOST_NAME", name)).port.name, name);
    EXPECT_EQ(ReadOne(onNetwork + MakeElement(L"PORT_NAME", name)).port.host, L"2001:db8:77::f");
}

TEST(PrinterDeviceTest, SpeaksLprWhereThePackageOrTheDeviceSaysSo) {
    const std::wstring fields = onNetwork + L"<HOST_NAME>loom-1</HOST_NAME>";
    EXPECT_EQ(ReadOne(fields, {.protocol = L"lpr", .lprQueue = L"raw1"}).port,
              (PrinterPort{.kind = PortKind::Lpr,
                           .name = L"loom-1",
                           .host = L"loom-1",
                           .number = 515,
                           .lprQueue = L"raw1"}));
    EXPECT_EQ(ReadOne(fields + L"<PROTOCOL>LPR</PROTOCOL>").port.lprQueue, L"lp");
    EXPECT_EQ(
        ReadOne(fields + L"<PROTOCOL>RAW</PROTOCOL><PORT_NUMBER>9101</PORT_NUMBER>", {.protocol = L"LPR"})
            .port.number,
        9101U);
    EXPECT_EQ(ReadOne(fields + L"<PORT_NUMBER>65535</PORT_NUMBER>").port.number, 65535U);
}

TEST(PrinterDeviceTest, PrefersItsOwnLocationAndCommentToThoseOfThePackage) {
    const PackageWishes wishes{.location = L"Anywhere", .comment = L"Loom"};
    const PrinterDevice device = ReadOne(named + L"<LOCATION>Hall</LOCATION>", wishes);
    EXPECT_EQ(device.location, L"Hall");
    EXPECT_EQ(device.comment, L"Loom");
}

TEST(PrinterDeviceTest, IsASharedPrinterByItsPathWhateverItsNameHolds) {
    const PrinterDevice device =
        ReadOne(L"<PRINTER_NAME>a, b</PRINTER_NAME><NETWORK_PATH>\\\\server\\front</NETWORK_PATH>");
    EXPECT_EQ(device.link, DeviceLink::SharedPrinter);
    EXPECT_EQ(device.sharePath, L"\\\\server\\front");
    EXPECT_THAT(ProblemOf(named + L"<NETWORK_PATH>server/front</NETWORK_PATH>"), HasSubstr(L"server/front"));
}

TEST(PrinterDeviceTest, IsLeftToWindowsOnUsbWithoutAPort) {
    EXPECT_EQ(ReadOne(named + L"<PORT_TYPE>USB</PORT_TYPE>").link, DeviceLink::PlugAndPlay);
    EXPECT_EQ(ReadOne(named + L"<PORT_TYPE>USB</PORT_TYPE><PORT_NAME>USB001</PORT_NAME>").link,
              DeviceLink::Port);
}

TEST(PrinterDeviceTest, HasNoLinkWhereNobodyPickedAPort) {
    EXPECT_EQ(ReadOne(named).link, DeviceLink::None);
}

class PrinterNameTest : public testing::TestWithParam<std::wstring> {};

TEST_P(PrinterNameTest, IsTakenAsItIs) {
    const PrinterDevice device = ReadOne(MakeElement(L"PRINTER_NAME", GetParam()));
    EXPECT_EQ(device.name, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Names, PrinterNameTest,
                         testing::Values(L"19\" desk", L"it's", L"B\u00fcro \u65e5\u672c", L"a/b", L"<b>",
                                         L"100 %", std::wstring(220, L'x')));

struct Refusal {
    std::wstring fields;
    std::wstring words;
};

class PrinterDeviceRefusalTest : public testing::TestWithParam<Refusal> {};

TEST_P(PrinterDeviceRefusalTest, SaysWhy) {
    EXPECT_THAT(ProblemOf(GetParam().fields), HasSubstr(GetParam().words));
}

INSTANTIATE_TEST_SUITE_P(
    Devices, PrinterDeviceRefusalTest,
    testing::Values(
        Refusal{L"", L"no name"}, Refusal{L"<PRINTER_NAME>  </PRINTER_NAME>", L"no name"},
        Refusal{L"<PRINTER_NAME>a\\b</PRINTER_NAME>", L"\"a\\b\" cannot be set up"},
        Refusal{L"<PRINTER_NAME>a, b</PRINTER_NAME>", L"comma"},
        Refusal{L"<PRINTER_NAME>a!</PRINTER_NAME>", L"exclamation"},
        Refusal{L"<PRINTER_NAME>a\tb</PRINTER_NAME>", L"cannot hold"},
        Refusal{MakeElement(L"PRINTER_NAME", std::wstring(221, L'x')), L"220"},
        Refusal{onNetwork, L"no name (PORT_NAME)"},
        Refusal{onNetwork + MakeElement(L"HOST_NAME", std::wstring(49, L'h')), L"more than 48"},
        Refusal{onNetwork + MakeElement(L"PORT_NAME", std::wstring(64, L'p')), L"more than 63"},
        Refusal{onNetwork + L"<HOST_NAME>h</HOST_NAME><PORT_NUMBER>x</PORT_NUMBER>", L"\"x\" is no number"},
        Refusal{onNetwork + L"<HOST_NAME>h</HOST_NAME><PORT_NUMBER>65536</PORT_NUMBER>", L"65536"},
        Refusal{onNetwork + L"<HOST_NAME>h</HOST_NAME><PORT_NUMBER>99999999999999</PORT_NUMBER>",
                L"no number"},
        Refusal{onLocalPort + L"<PORT_NAME>C:\\a,b</PORT_NAME>", L"comma"},
        Refusal{onLocalPort + MakeElement(L"PORT_NAME", std::wstring(260, L'p')), L"more than 259"}));

TEST(NameListTest, IsDividedBySemicolons) {
    EXPECT_THAT(ReadNames(L"One; Two three ;;Four"), ElementsAre(L"One", L"Two three", L"Four"));
    EXPECT_THAT(ReadNames(L"One;Two"), ElementsAre(L"One", L"Two"));
    EXPECT_THAT(ReadNames(L" ; "), IsEmpty());
}

}  // namespace
