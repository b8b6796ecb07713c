#include <gmock/gmock.h>

#include "catalogue/DriverInfo.h"
#include "settings/TagNames.h"
#include "tests/unit/CatalogueInMemory.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Two packages of one driver, one of another, and the driver of the scanner.
class DriverInfoTest : public CatalogueInMemory {
protected:
    DriverInfoTest() {
        settings.SetString(Tag::WIN8_DRVTYPES, L"A;B");
        Add(L"Drivers\\x64\\a1", {{L"DRIVERID", L"A"}, {L"ISOMBRELSUPPORTED", L"TRUE"}});
        Add(L"Drivers\\x64\\a2", {{L"DRIVERID", L"A"}, {L"STREAMDISPLAYNAME", L"PS3"}});
        Add(L"Drivers\\x64\\b", {{L"DRIVERID", L"B"}, {L"ISOMBRELSUPPORTED", L"TRUE"}});
        Add(L"Drivers\\x64\\scan", {{L"DRIVERID", L"SCAN"}});
        drivers.PopulateDriverList(Source());
    }

    std::vector<std::wstring> Selected() const {
        std::vector<std::wstring> names;
        for (const MSI_APP& record : drivers.GetDrivers()) {
            if (record.isSelected) names.push_back(record.productName);
        }
        return names;
    }

    DriverInfo drivers;
};

TEST_F(DriverInfoTest, IsOneForTheWholeProgram) {
    DriverInfo::GetInstance().PopulateDriverList(Source());
    EXPECT_FALSE(DriverInfo::GetInstance().GetDrivers().empty());
    DriverInfo::GetInstance().Clear();
    EXPECT_TRUE(DriverInfo::GetInstance().GetDrivers().empty());
    EXPECT_EQ(drivers.GetDrivers().size(), 4U);
}

TEST_F(DriverInfoTest, KnowsTheRoomThatADriverTakes) {
    Add(L"Drivers\\x64\\large", {{L"DRIVERID", L"B"}, {L"INSTALLSIZE", L"12 MB"}});
    drivers.PopulateDriverList(Source());
    EXPECT_THAT(drivers.GetDrivers(), testing::Contains(testing::Field(&MSI_APP::installSizeMb, 12)));
}

TEST_F(DriverInfoTest, SelectsEveryDriverFromTheStart) {
    EXPECT_THAT(Selected(), ElementsAre(L"a1", L"a2", L"b", L"scan"));
}

TEST_F(DriverInfoTest, HasThePathOfTheLastPackageAndTheRecordOfTheFirst) {
    EXPECT_EQ(drivers.GetDriverPath(L"A"), L"Drivers\\x64\\a2");
    EXPECT_EQ(drivers.GetDriver(L"A").productName, L"a1");
    EXPECT_EQ(drivers.GetDriverPath(L"C"), L"");
    EXPECT_EQ(drivers.GetDriver(L"C").productName, L"");
}

TEST_F(DriverInfoTest, ReadsTheNameOfTheStream) {
    EXPECT_EQ(drivers.GetDrivers().at(1).streamDisplayName, L"PS3");
}

TEST_F(DriverInfoTest, SupportsTheBrandedToolByTheLastPackage) {
    EXPECT_FALSE(drivers.IsOmbrelSupported(L"A"));
    EXPECT_TRUE(drivers.IsOmbrelSupported(L"B"));
    EXPECT_FALSE(drivers.IsOmbrelSupported(L"C"));
}

// The records of a package's properties that are missing.
std::vector<std::wstring> MissingProperties() {
    std::vector<std::wstring> messages;
    for (const RecordedLine& line : TheLog().advanced) {
        if (line.message.starts_with(L"Failed to get DRIVER")) messages.push_back(line.message);
    }
    return messages;
}

TEST_F(DriverInfoTest, TellsOfAPackageWithoutNameOrIdentifier) {
    const std::wstring end = L" property. Return Code: " + std::to_wstring(MsiCode::PropertyNotFound);
    TheLog() = {};
    msi.packages = {{L"Drivers\\x64\\a", {{L"DRIVERID", L"A"}, {L"DRIVERNAME", L"Driver A"}}}};
    drivers.PopulateDriverList(Source());
    EXPECT_THAT(MissingProperties(), IsEmpty());
    msi.packages = {{L"Drivers\\x64\\nameless", {}}};
    drivers.PopulateDriverList(Source());
    EXPECT_THAT(MissingProperties(),
                ElementsAre(L"Failed to get DRIVERNAME" + end, L"Failed to get DRIVERID" + end));
}

TEST_F(DriverInfoTest, SelectsAllPackagesOfADriver) {
    drivers.SelectDriver(L"A", false);
    drivers.SelectDriver(L"C", false);
    EXPECT_THAT(Selected(), ElementsAre(L"b", L"scan"));
    drivers.SelectDriver(L"A");
    EXPECT_THAT(Selected(), ElementsAre(L"a1", L"a2", L"b", L"scan"));
}

TEST_F(DriverInfoTest, LeavesOneDriverForThePrinterWhereThatIsWanted) {
    drivers.SelectOnlyPrinterDriver(L"SCAN");
    drivers.SelectOnlyPrinterDriver(L"C");
    EXPECT_THAT(Selected(), ElementsAre(L"a1", L"a2", L"b", L"scan"));
    drivers.SelectOnlyPrinterDriver(L"B");
    EXPECT_THAT(Selected(), ElementsAre(L"b", L"scan"));
}

TEST_F(DriverInfoTest, NotesTheOutcomeOfThePackageOfThatPath) {
    MSI_APP outcome = drivers.GetDrivers().at(1);
    outcome.isInstalled = true;
    outcome.status = PackageStatus::Done;
    drivers.RecordOutcome(outcome);
    outcome.msiPath = L"unknown";
    drivers.RecordOutcome(outcome);
    EXPECT_FALSE(drivers.GetDrivers().at(0).isInstalled);
    EXPECT_TRUE(drivers.GetDrivers().at(1).isInstalled);
    EXPECT_EQ(drivers.GetDrivers().at(1).status, PackageStatus::Done);
}

TEST_F(DriverInfoTest, KeepsNothingWhenItIsCleared) {
    drivers.Clear();
    EXPECT_THAT(drivers.GetDrivers(), IsEmpty());
    EXPECT_EQ(drivers.GetDriverPath(L"A"), L"");
}

}  // namespace
