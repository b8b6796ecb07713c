// Which packages of the tree a run takes up, and what it reads of them.

#include "tests/wizard/WizardTest.h"

using testing::ElementsAre;
using testing::Not;
using testing::UnorderedElementsAre;

namespace {

std::wstring DriverProperties(const std::wstring& identifier, const std::wstring& further = {}) {
    return Element(L"ProductName", identifier) + Element(L"DRIVERID", identifier) +
           Element(L"DRIVERNAME", L"Driver " + identifier) + further;
}

class CatalogueTest : public WizardTest {
protected:
    void Accept(const std::wstring& drivers) {
        tree.SetSettings(std::wstring(Settings::silent) + Element(L"WIN8_DRVTYPES", drivers) +
                         Element(L"WINXP_DRVTYPES", L"OLD"));
    }

    void AddDriver(const std::wstring& file, const std::wstring& identifier,
                   const std::wstring& further = {}) {
        tree.Add({.path = L"Drivers\\x64\\" + file, .properties = DriverProperties(identifier, further)});
    }

    std::vector<std::wstring> PackagesRead() const {
        std::vector<std::wstring> packages;
        for (const LibraryCall& call : Calls(L"MsiGetProperties")) packages.push_back(call.Package());
        return packages;
    }
};

TEST_F(CatalogueTest, ReadsTheDriversAndThenTheApplicationsTheCommonAndTheOptionalPackages) {
    tree.Add({.path = L"Optional\\x64\\o2.msi"});
    tree.Add({.path = L"Optional\\x86_x64\\o1.msi"});
    tree.Add({.path = L"Common\\x64\\c2.msi"});
    tree.Add({.path = L"Common\\x86_x64\\c1.msi"});
    tree.Add({.path = L"Applications\\x64\\a3.msi"});
    tree.Add({.path = L"Applications\\x86_x64\\a2.msi"});
    tree.Add({.path = L"Applications\\a1.msi"});
    // The drivers' folders come in the other order.
    tree.Add({.path = L"Drivers\\x86_x64\\d2.msi"});
    tree.Add({.path = L"Drivers\\x64\\d1.msi"});
    Run();
    EXPECT_THAT(PackagesRead(), ElementsAre(L"d1.msi", L"d2.msi", L"a1.msi", L"a2.msi", L"a3.msi", L"c1.msi",
                                            L"c2.msi", L"o1.msi", L"o2.msi"));
}

TEST_F(CatalogueTest, RunsTheApplicationsAndThenTheDriversAndNeitherCommonNorOptionalPackages) {
    Accept(L"X");
    AddDriver(L"x.msi", L"X");
    tree.Add({.path = L"Applications\\a.msi"});
    tree.Add({.path = L"Common\\x64\\c.msi"});
    tree.Add({.path = L"Optional\\x64\\o.msi"});
    Run();
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi", L"x.msi"));
}

TEST_F(CatalogueTest, LeavesOtherFilesAndOtherFoldersAlone) {
    tree.Add({.path = L"Applications\\a.msi"});
    tree.WriteFile(L"Applications\\readme.txt", "no package");
    tree.WriteFile(L"Applications\\other\\b.msi", {});
    tree.WriteFile(L"Common\\b.msi", {});
    Run();
    EXPECT_THAT(PackagesRead(), ElementsAre(L"a.msi"));
}

TEST_F(CatalogueTest, InstallsAPackageThatLiesInTwoFoldersTwice) {
    tree.Add({.path = L"Applications\\a.msi"});
    tree.WriteFile(L"Applications\\x64\\a.msi", {});
    Run();
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi", L"a.msi"));
}

TEST_F(CatalogueTest, HasNoRegardForTheSystemsOfAnApplication) {
    tree.Add({.path = L"Applications\\a.msi",
              .properties = L"<ProductName>a</ProductName><SUPPORTEDOS>WINDOWS_7;WINDOWS_8</SUPPORTEDOS>"});
    Run();
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
}

TEST_F(CatalogueTest, TellsOfThePropertiesThatAPackageDoesNotHave) {
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Failed to find the property"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"MsiInfoService::buildDriverInfo"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"MsiInfoService::buildAppInfo"));
}

TEST_F(CatalogueTest, DropsEveryPrinterDriverWhenNoneIsAccepted) {
    Accept({});
    AddDriver(L"x.msi", L"X");
    AddDriver(L"scan.msi", L"SCAN");
    AddDriver(L"fax.msi", L"Fax");
    Run();
    EXPECT_THAT(Installs(), UnorderedElementsAre(L"scan.msi", L"fax.msi"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Using WIN8_DRVTYPES: "));
    EXPECT_THAT(AdvancedLog(),
                HasRecord(L"", L"DRIVERID X is NOT supported. Not added to driver driverInfoList."));
}

// The accepted types, and those of the drivers X and XY that are installed.
struct AcceptCase {
    const char* name;
    const wchar_t* setting;
    std::vector<std::wstring> installed;
};

void PrintTo(const AcceptCase& given, std::ostream* stream) {
    *stream << given.name;
}

class AcceptedDriverTest : public CatalogueTest, public testing::WithParamInterface<AcceptCase> {};

TEST_P(AcceptedDriverTest, IsComparedWholeAndExactly) {
    Accept(GetParam().setting);
    AddDriver(L"x.msi", L"X");
    AddDriver(L"xy.msi", L"XY");
    Run();
    EXPECT_THAT(Installs(), testing::UnorderedElementsAreArray(GetParam().installed));
}

INSTANTIATE_TEST_SUITE_P(
    Settings, AcceptedDriverTest,
    testing::Values(AcceptCase{"One", L"X", {L"x.msi"}}, AcceptCase{"TrailingDivider", L"X;", {L"x.msi"}},
                    AcceptCase{"Both", L"XY;X", {L"x.msi", L"xy.msi"}},
                    AcceptCase{"EmptyPieceBetween", L"X;;XY", {L"x.msi", L"xy.msi"}},
                    AcceptCase{"OtherCase", L"x;xY", {}}, AcceptCase{"NothingIsTrimmed", L"X ; XY", {}},
                    AcceptCase{"OfTheOlderSystems", L"OLD", {}}),
    [](const testing::TestParamInfo<AcceptCase>& given) { return std::string(given.param.name); });

TEST_F(CatalogueTest, KeepsTwoDriversOfOneIdentifier) {
    Accept(L"X");
    AddDriver(L"one.msi", L"X");
    AddDriver(L"two.msi", L"X");
    Run();
    EXPECT_THAT(Installs(), UnorderedElementsAre(L"one.msi", L"two.msi"));
}

TEST_F(CatalogueTest, TakesTheExactWordForTheBrandedConfigurationAlone) {
    Accept(L"X;Y");
    AddDriver(L"x.msi", L"X", L"<ISOMBRELSUPPORTED>true</ISOMBRELSUPPORTED>");
    AddDriver(L"y.msi", L"Y", L"<ISOMBRELSUPPORTED>TRUE</ISOMBRELSUPPORTED>");
    Run();
    EXPECT_THAT(AdvancedLog(), Not(HasRecord(L"", L"Driver X Supports Ombrel.")));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Driver Y Supports Ombrel."));
}

TEST_F(CatalogueTest, NamesTheCodeOfTheDriversNameAlsoForItsIdentifier) {
    // By design: the first reading's own code goes with the name, and the identifier's line repeats it.
    tree.Add({.path = L"Drivers\\x64\\x.msi", .properties = L"<DRIVERNAME>X</DRIVERNAME>"});
    Run();
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Failed to get DRIVERID property. Return Code: 0"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Failed to get DEVICETYPE property."));
    EXPECT_THAT(Installs(), ElementsAre(L"x.msi"));
}

TEST_F(CatalogueTest, TakesADriverWithoutAnIdentifierWhenTheLibraryIsMissing) {
    Accept(L"X");
    AddDriver(L"x.msi", L"X");
    tree.UseLibrary({});
    Run();
    EXPECT_EQ(FinalSetting(L"APPS_ONLY_PACKAGE"), L"false");
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Failed to get DRIVERNAME property. Return Code: 1168"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Failed to get DRIVERID property. Return Code: 1168"));
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"ERROR", L"There were no applications found to install")));
}

TEST_F(CatalogueTest, LeavesAPackageThatDependsOnItselfOutAsItsOwnDependent) {
    tree.Add({.path = L"Applications\\a.msi",
              .properties = L"<ProductName>a</ProductName><DEPENDENTAPPS>b.msi</DEPENDENTAPPS>"});
    tree.Add({.path = L"Dependents\\x64\\b.msi",
              .properties = L"<ProductName>b</ProductName><DEPENDENTAPPS>b.msi</DEPENDENTAPPS>"});
    Run();
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi", L"b.msi"));
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR",
                                      L"A package depends on itself and is left out as its own "
                                      L"dependent: " +
                                          ProgramPathOf(L"Dependents\\x64\\b.msi")));
}

}  // namespace
