#include <gmock/gmock.h>

#include <cstring>
#include <thread>

#include "tests/fakes/Spooler/MonitorPlaces.h"
#include "tests/fakes/Spooler/PrintWorld.h"
#include "tests/windows/standins/PrinterWorld.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class NetworkPortTest : public PrinterWorldTest {
protected:
    void SetUp() override {
        PrinterWorldTest::SetUp();
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, path, MAX_PATH);
        const std::wstring program = path;
        ASSERT_EQ(AddTestMonitor(program.substr(0, program.rfind(L'\\') + 1) + L"TestPortMonitor.dll"), 0U);
    }

    // A field of what the monitor was told, by its place in the structure that Windows documents.
    static std::wstring TextAt(const std::vector<unsigned char>& data, std::size_t offset) {
        return data.size() <= offset ? L"" : reinterpret_cast<const wchar_t*>(data.data() + offset);
    }
    static DWORD NumberAt(const std::vector<unsigned char>& data, std::size_t offset) {
        DWORD number = 0;
        if (data.size() >= offset + sizeof(number))
            std::memcpy(&number, data.data() + offset, sizeof(number));
        return number;
    }
};

TEST_F(NetworkPortTest, IsMadeForRawData) {
    EXPECT_EQ(
        Install(printerPackage, Document({NetworkDevice(L"Front desk", L"IP_loom", L"loom-front.example")})),
        0U);
    const std::vector<unsigned char> data = ToldOfPort(L"IP_loom");
    ASSERT_EQ(data.size(), 964U);
    EXPECT_EQ(TextAt(data, 0), L"IP_loom");
    EXPECT_EQ(NumberAt(data, 128), 1U);
    EXPECT_EQ(NumberAt(data, 132), 1U);
    EXPECT_EQ(NumberAt(data, 136), 964U);
    EXPECT_EQ(TextAt(data, 144), L"loom-front.example");
    EXPECT_EQ(TextAt(data, 312), L"");
    EXPECT_EQ(NumberAt(data, 952), 9100U);
    EXPECT_EQ(NumberAt(data, 956), 0U);
    EXPECT_EQ(Queue(L"Front desk").port, L"IP_loom");
    EXPECT_EQ(Uninstall(printerPackage), 0U);
    EXPECT_THAT(ToldOfPort(L"IP_loom"), IsEmpty());
}

TEST_F(NetworkPortTest, IsMadeForLpr) {
    EXPECT_EQ(
        Install(L"printer-lpr.msi", Document({NetworkDevice(L"Front desk", L"192.0.2.7", L"192.0.2.7")})),
        0U);
    const std::vector<unsigned char> data = ToldOfPort(L"192.0.2.7");
    EXPECT_EQ(NumberAt(data, 132), 2U);
    EXPECT_EQ(TextAt(data, 312), L"raw1");
    EXPECT_EQ(NumberAt(data, 952), 515U);
    EXPECT_EQ(Uninstall(L"printer-lpr.msi"), 0U);
    EXPECT_THAT(ToldOfPort(L"192.0.2.7"), IsEmpty());
}

TEST_F(NetworkPortTest, OfThatNameIsUsedAndKept) {
    EXPECT_EQ(Install(printerPackage, Document({NetworkDevice(L"Front desk", L"IP_loom", L"192.0.2.7")})),
              0U);
    EXPECT_EQ(Install(L"printer-lpr.msi", Document({NetworkDevice(L"Fax", L"IP_loom", L"192.0.2.8")})), 0U);
    EXPECT_EQ(TextAt(ToldOfPort(L"IP_loom"), 144), L"192.0.2.7");
    EXPECT_EQ(Uninstall(printerPackage), 0U);
    EXPECT_EQ(Queue(L"Fax").port, L"IP_loom");
    EXPECT_EQ(Uninstall(L"printer-lpr.msi"), 0U);
    EXPECT_FALSE(HasPort(L"IP_loom"));
}

TEST_F(NetworkPortTest, IsGoneWhereThePackageFailsLater) {
    EXPECT_NE(
        Install(L"printer-failing.msi",
                Document({NetworkDevice(L"Front desk", L"IP_loom", L"192.0.2.7")}) + L"<FAILS>1</FAILS>"),
        0U);
    EXPECT_FALSE(HasPort(L"IP_loom"));
}

// The second device's port is not made before the user has cancelled.
TEST_F(NetworkPortTest, IsGoneWithItsPrinterWhereTheUserCancels) {
    const HANDLE gate = CreateEventW(nullptr, TRUE, FALSE, gateName);
    ASSERT_NE(gate, nullptr);
    std::uint32_t code = 0;
    std::thread installing([&] {
        code = Install(printerPackage,
                       Document({LocalDevice(L"Front desk", port) + L"<SET_DEFAULT>true</SET_DEFAULT>",
                                 NetworkDevice(L"Second", L"IP_loom", L"192.0.2.7")}));
    });
    EXPECT_TRUE(WaitFor([] { return Queue(L"Front desk").name == L"Front desk"; }));
    library.cancel();
    SetEvent(gate);
    installing.join();
    CloseHandle(gate);
    EXPECT_EQ(code, static_cast<std::uint32_t>(ERROR_INSTALL_USEREXIT));
    EXPECT_THAT(QueueNames(), ElementsAre(L"Earlier"));
    EXPECT_FALSE(HasPort(port));
    EXPECT_FALSE(HasPort(L"IP_loom"));
    EXPECT_FALSE(HasRecords());
    EXPECT_EQ(DefaultPrinter(), L"Earlier");
}

class PortNameTest : public NetworkPortTest, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(PortNameTest, ReachesTheMonitorAsItIs) {
    const std::wstring name = GetParam();
    EXPECT_EQ(Install(printerPackage, Document({NetworkDevice(L"Front desk", name, L"192.0.2.7")})), 0U);
    EXPECT_EQ(TextAt(ToldOfPort(name), 0), name);
    EXPECT_EQ(Queue(L"Front desk").port, name);
    EXPECT_EQ(Uninstall(printerPackage), 0U);
    EXPECT_FALSE(HasPort(name));
}

INSTANTIATE_TEST_SUITE_P(Names, PortNameTest,
                         testing::Values(L"19\" port", L"back\\slash", L"B\u00fcro \u65e5\u672c",
                                         L"it's <P>"));

TEST_F(NetworkPortTest, WithACommaIsRefused) {
    EXPECT_EQ(Install(printerPackage, Document({NetworkDevice(L"Front desk", L"a,b", L"192.0.2.7")})),
              static_cast<std::uint32_t>(ERROR_INSTALL_FAILURE));
    EXPECT_THAT(InstallerLog(), HasSubstr(L"the name of its port, \"a,b\", holds a comma"));
}

}  // namespace
