#include <gmock/gmock.h>

#include "catalogue/AppCatalogue.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AppCatalogueTest : public testing::Test {
protected:
    void Append(const std::wstring& name, const std::wstring& appType = {}) {
        MSI_APP record;
        record.productName = name;
        record.msiPath = L"Common\\" + name + L".msi";
        record.appType = appType;
        catalogue.Append(record);
    }
    std::vector<std::wstring> Names(std::wstring_view filter = {}) const {
        std::vector<std::wstring> names;
        for (const MSI_APP& record : catalogue.Select(filter)) names.push_back(record.productName);
        return names;
    }

    AppCatalogue catalogue;
};

TEST_F(AppCatalogueTest, IsOneForTheWholeProgram) {
    AppCatalogue::GetInstance().Append(MSI_APP());
    EXPECT_EQ(AppCatalogue::GetInstance().Select({}).size(), 1U);
    EXPECT_THAT(Names(), IsEmpty());
    AppCatalogue::GetInstance().Clear();
}

TEST_F(AppCatalogueTest, KeepsTheOrderOfItsRecords) {
    Append(L"b");
    Append(L"a");
    EXPECT_THAT(Names(), ElementsAre(L"b", L"a"));
    catalogue.Clear();
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(AppCatalogueTest, FindsTheFirstOfExactlyThatType) {
    Append(L"other", L"DRIVERCONFIG2");
    Append(L"first", L"DRIVERCONFIG");
    Append(L"second", L"DRIVERCONFIG");
    EXPECT_EQ(catalogue.FirstOfType(L"DRIVERCONFIG").value_or(MSI_APP()).productName, L"first");
    EXPECT_FALSE(catalogue.FirstOfType(L"driverconfig"));
}

TEST_F(AppCatalogueTest, NotesTheOutcomeOfAPackageThatItKnows) {
    Append(L"a");
    Append(L"b");
    MSI_APP outcome = catalogue.Select({}).back();
    outcome.isInstalled = true;
    outcome.status = PackageStatus::Updated;
    outcome.productName = L"another name";
    catalogue.RecordOutcome(outcome);
    outcome.msiPath = L"Common\\unknown.msi";
    catalogue.RecordOutcome(outcome);
    EXPECT_THAT(Names(), ElementsAre(L"a", L"b"));
    EXPECT_FALSE(catalogue.Select({}).front().isInstalled);
    EXPECT_TRUE(catalogue.Select({}).back().isInstalled);
    EXPECT_EQ(catalogue.Select({}).back().status, PackageStatus::Updated);
}

TEST_F(AppCatalogueTest, ChangesItsRecordsInPlace) {
    Append(L"a");
    Append(L"b");
    catalogue.Update([](MSI_APP& record) { record.isSelected = record.productName == L"b"; });
    EXPECT_THAT(Names(L"<ISSELECTED>true</ISSELECTED>"), ElementsAre(L"b"));
}

}  // namespace
