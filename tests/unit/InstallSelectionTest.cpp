#include <gmock/gmock.h>

#include "install/InstallSelection.h"
#include "settings/TagNames.h"
#include "tests/unit/CatalogueInMemory.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class InstallSelectionTest : public CatalogueInMemory {
protected:
    InstallSelectionTest() {
        for (const bool optional : {false, true}) {
            for (const bool selected : {false, true}) {
                MSI_APP record;
                record.productName = optional ? L"optional" : L"core";
                record.isOptional = optional;
                record.isSelected = selected;
                applications.Append(record);
            }
        }
    }

    std::vector<std::wstring> Apps() const {
        std::vector<std::wstring> names;
        for (const MSI_APP& record : SelectApps(settings, applications)) {
            EXPECT_TRUE(record.isSelected);
            names.push_back(record.productName);
        }
        return names;
    }

    AppCatalogue applications;
};

TEST_F(InstallSelectionTest, TakesTheSelectedPackagesOfTheRun) {
    EXPECT_THAT(Apps(), ElementsAre(L"core"));
    settings.SetBool(Tag::OPTIONAL_INSTALL, true);
    EXPECT_THAT(Apps(), ElementsAre(L"optional"));
}

TEST_F(InstallSelectionTest, TakesBothInTheSecondVariant) {
    settings.SetString(Tag::AMAZON_SUPPORTED, L"TRUE");
    EXPECT_THAT(Apps(), ElementsAre(L"core", L"optional"));
    settings.SetBool(Tag::OPTIONAL_INSTALL, true);
    EXPECT_THAT(Apps(), ElementsAre(L"core", L"optional"));
}

TEST_F(InstallSelectionTest, TakesTheSelectedDriversAndNoneInAnOptionalRun) {
    settings.SetString(Tag::WIN8_DRVTYPES, L"A;B");
    Add(L"Drivers\\x64\\a", {{L"DRIVERID", L"A"}});
    Add(L"Drivers\\x64\\b", {{L"DRIVERID", L"B"}});
    DriverInfo drivers;
    drivers.PopulateDriverList(Source());
    drivers.SelectDriver(L"A", false);
    const std::vector<MSI_APP> selected = SelectDrivers(settings, drivers);
    ASSERT_EQ(selected.size(), 1U);
    EXPECT_EQ(selected.front().driverId, L"B");
    settings.SetBool(Tag::OPTIONAL_INSTALL, true);
    EXPECT_THAT(SelectDrivers(settings, drivers), IsEmpty());
}

}  // namespace
