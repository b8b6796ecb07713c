#include <gtest/gtest.h>

#include "pages/BypassOffer.h"
#include "settings/TagNames.h"
#include "tests/unit/CatalogueInMemory.h"

namespace {

constexpr InstalledProduct upToDate{.upToDate = true};
constexpr InstalledProduct older{.upgradable = true};
constexpr InstalledProduct newer{};

class BypassOfferTest : public CatalogueInMemory {
protected:
    BypassOfferTest() { settings.SetString(Tag::WIN8_DRVTYPES, L"A;B"); }

    void AddDriver(const std::wstring& identifier) { Add(PathOf(identifier), {{L"DRIVERID", identifier}}); }
    void AddDriver(const std::wstring& identifier, const InstalledProduct& product) {
        AddDriver(identifier);
        msi.products[PathOf(identifier)] = product;
    }
    bool IsOffered() {
        DriverInfo drivers;
        drivers.PopulateDriverList(Source());
        return IsPrinterSoftwareUpToDate(drivers);
    }

private:
    static std::wstring PathOf(const std::wstring& identifier) { return L"Drivers\\x64\\" + identifier; }
};

TEST_F(BypassOfferTest, IsForDriversThatAreUpToDate) {
    AddDriver(L"A", upToDate);
    AddDriver(L"B");
    EXPECT_TRUE(IsOffered());
}

TEST_F(BypassOfferTest, IsForDriversThatAreNewerThanThePackages) {
    AddDriver(L"A", newer);
    EXPECT_TRUE(IsOffered());
}

TEST_F(BypassOfferTest, IsNoneWhereNothingIsInstalled) {
    AddDriver(L"A");
    EXPECT_FALSE(IsOffered());
}

TEST_F(BypassOfferTest, IsNoneWhereADriverIsUpgradedAfterAnotherThatIsUpToDate) {
    AddDriver(L"A", upToDate);
    AddDriver(L"B", older);
    EXPECT_FALSE(IsOffered());
}

TEST_F(BypassOfferTest, IsNoneWhereADriverIsUpgradedBeforeAnotherThatIsUpToDate) {
    AddDriver(L"A", older);
    AddDriver(L"B", upToDate);
    EXPECT_FALSE(IsOffered());
}

TEST_F(BypassOfferTest, LooksAtPrinterDriversAlone) {
    AddDriver(L"SCAN", upToDate);
    EXPECT_FALSE(IsOffered());
    AddDriver(L"A", upToDate);
    AddDriver(L"Fax", older);
    EXPECT_TRUE(IsOffered());
}

}  // namespace
