#include <filesystem>

#include "CommonLib/Files.h"
#include "CommonLib/MsiCodes.h"
#include "catalogue/MsiInterface.h"
#include "tests/fakes/TextLines.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/wizard/LibraryCalls.h"

namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const std::wstring package = L"C:\\any folder\\a.msi";

std::vector<std::wstring> answeredMessages;

std::int32_t KeepMessage(const wchar_t* message) {
    answeredMessages.push_back(message);
    return 7;
}

// A scripted library in a folder of its own, which records how it is called.
class MsiInterfaceTest : public SettingsWorld {
protected:
    MsiInterfaceTest() {
        answeredMessages.clear();
        Settings().SetString(Tag::OEM, L"Maker");
        AddTexts("<LANGUAGE_ID>1031</LANGUAGE_ID>");
    }

    // The gateway to a library with this script and, if an export is named, without that one.
    MsiInterface Gateway(const std::vector<std::vector<std::wstring>>& script = {},
                         const std::wstring& missingExport = {}) const {
        const std::wstring build = missingExport.empty() ? L"complete" : L"without_" + missingExport;
        fs::copy_file(Fakes() / build / L"Brevanto.dll", folder / L"Brevanto.dll");
        for (const auto& line : script) AppendText(folder / L"Brevanto.script", JoinFields(line));
        return MsiInterface(folder / L"Brevanto.dll", Settings(), Texts());
    }
    std::vector<LibraryCall> Calls() const { return ReadCalls(folder / L"Brevanto.record"); }
    std::vector<std::wstring> CallNames() const {
        std::vector<std::wstring> names;
        for (const LibraryCall& call : Calls()) names.push_back(call.name);
        return names;
    }
    LibraryCall Call(const std::wstring& name) const {
        for (const LibraryCall& call : Calls()) {
            if (call.name == name) return call;
        }
        ADD_FAILURE() << "the library was not called";
        return {};
    }

private:
    // Where the build puts the libraries, seen from this program's folder.
    static fs::path Fakes() { return fs::path(GetExeDirectory()) / L"..\\..\\..\\..\\fakes"; }

    ScratchFolder folder;
};

TEST_F(MsiInterfaceTest, GoesOnWithoutALibraryAndTellsSoOnce) {
    MsiInterface gateway(L"C:\\no such folder\\Brevanto.dll", Settings(), Texts());
    std::wstring value = L"untouched";
    bool upToDate = true;
    bool upgradable = true;
    bool minorUpgrade = true;
    EXPECT_EQ(gateway.InstallApp(package, nullptr, L""), 0U);
    EXPECT_EQ(gateway.UninstallApp(package, nullptr), 0U);
    EXPECT_EQ(gateway.GetPropertyValue(package, L"ProductName", L"1033", value), 1168U);
    EXPECT_FALSE(gateway.IsAppInstalled(package, upToDate, upgradable, minorUpgrade));
    gateway.Cancel();
    EXPECT_EQ(value, L"untouched");
    EXPECT_TRUE(upToDate && upgradable && minorUpgrade);
    EXPECT_THAT(BasicLog(), ElementsAre(Record(L"ERROR", L"Failed to load Brevanto.dll!")));
}

TEST_F(MsiInterfaceTest, BeginsAndEndsTheLibrary) {
    { const MsiInterface gateway = Gateway(); }
    EXPECT_THAT(CallNames(), ElementsAre(L"MsiInitialize", L"MsiUninitialize"));
}

TEST_F(MsiInterfaceTest, InstallsWithTheCommandDocument) {
    MsiInterface gateway = Gateway({{L"package", L"a.msi"},
                                    {L"install", L"message", L"<PERCENT>50</PERCENT>"},
                                    {L"install", L"return", L"3010"}});
    EXPECT_EQ(gateway.InstallApp(package, &KeepMessage, L"<A>\u20AC</A>"), 3010U);
    const LibraryCall call = Call(L"MsiInstallApp");
    EXPECT_EQ(call.Argument(L"path"), package);
    EXPECT_EQ(call.Argument(L"pathLength"), std::to_wstring(package.size()));
    EXPECT_EQ(call.Argument(L"command"), L"<A>\u20AC</A>");
    EXPECT_EQ(call.Argument(L"commandLength"), L"8");
    EXPECT_THAT(answeredMessages, ElementsAre(L"<PERCENT>50</PERCENT>"));
    EXPECT_EQ(Call(L"answer").Argument(L"answer"), L"7");
}

TEST_F(MsiInterfaceTest, Removes) {
    MsiInterface gateway = Gateway({{L"package", L"a.msi"}, {L"uninstall", L"return", L"1605"}});
    EXPECT_EQ(gateway.UninstallApp(package, &KeepMessage), 1605U);
    EXPECT_EQ(Call(L"MsiUninstallApp").Argument(L"path"), package);
}

TEST_F(MsiInterfaceTest, CancelsBeforeAnyInstallation) {
    MsiInterface gateway = Gateway();
    gateway.Cancel();
    EXPECT_THAT(CallNames(), ElementsAre(L"MsiInitialize", L"MsiEnableInstallLog", L"MsiCancel"));
}

TEST_F(MsiInterfaceTest, NamesTheLogAfterTheVendorBeforeEveryCall) {
    MsiInterface gateway = Gateway();
    bool state = false;
    std::wstring value;
    gateway.InstallApp(package, &KeepMessage, L"");
    gateway.IsAppInstalled(package, state, state, state);
    gateway.GetPropertyValue(package, L"A", L"1033", value);
    EXPECT_THAT(CallNames(), ElementsAre(L"MsiInitialize", L"MsiEnableInstallLog", L"MsiInstallApp",
                                         L"MsiEnableInstallLog", L"MsiIsAppInstalledByLang",
                                         L"MsiEnableInstallLog", L"MsiGetProperties"));
    EXPECT_EQ(Call(L"MsiEnableInstallLog").Argument(L"name"), L"Maker");
    EXPECT_EQ(Call(L"MsiEnableInstallLog").Argument(L"length"), L"5");
}

TEST_F(MsiInterfaceTest, NamesTheLogPrinterWithoutAVendor) {
    Settings().SetString(Tag::OEM, L"");
    MsiInterface gateway = Gateway();
    gateway.Cancel();
    EXPECT_EQ(Call(L"MsiEnableInstallLog").Argument(L"name"), L"Printer");
}

TEST_F(MsiInterfaceTest, AsksForTheStateInTheLanguageOfTheTexts) {
    MsiInterface gateway = Gateway({{L"package", L"a.msi"}, {L"state", L"1", L"0", L"1", L"1"}});
    bool upToDate = true;
    bool upgradable = false;
    bool minorUpgrade = false;
    EXPECT_TRUE(gateway.IsAppInstalled(package, upToDate, upgradable, minorUpgrade));
    EXPECT_FALSE(upToDate);
    EXPECT_TRUE(upgradable);
    EXPECT_TRUE(minorUpgrade);
    const LibraryCall call = Call(L"MsiIsAppInstalledByLang");
    EXPECT_EQ(call.Argument(L"language"), L"1031");
    EXPECT_EQ(call.Argument(L"upToDate"), L"1");
    EXPECT_EQ(call.Argument(L"upgradable"), L"0");
    EXPECT_EQ(call.Argument(L"minorUpgrade"), L"0");
}

TEST_F(MsiInterfaceTest, OpensAPackageOnceForAllItsProperties) {
    MsiInterface gateway = Gateway({{L"package", L"a.msi"}, {L"properties", L"<A>1</A><B>2</B>"}});
    std::wstring first;
    std::wstring second;
    EXPECT_EQ(gateway.GetPropertyValue(package, L"A", L"1033", first), 0U);
    EXPECT_EQ(gateway.GetPropertyValue(package, L"B", L"1031", second), 0U);
    EXPECT_EQ(first + second, L"12");
    EXPECT_THAT(CallNames(), ElementsAre(L"MsiInitialize", L"MsiEnableInstallLog", L"MsiGetProperties"));
    // The first language has decided for the second property too.
    EXPECT_EQ(Call(L"MsiGetProperties").Argument(L"language"), L"1033");
}

TEST_F(MsiInterfaceTest, AsksTwiceForADocumentThatIsTooLong) {
    const std::wstring properties = L"<A>" + std::wstring(5000, L'x') + L"</A><LAST>yes</LAST>";
    MsiInterface gateway = Gateway({{L"package", L"a.msi"}, {L"properties", properties}});
    std::wstring value;
    EXPECT_EQ(gateway.GetPropertyValue(package, L"LAST", L"1033", value), 0U);
    EXPECT_EQ(value, L"yes");
    std::vector<std::wstring> capacities;
    for (const LibraryCall& call : Calls()) {
        if (call.name == L"MsiGetProperties") capacities.push_back(call.Argument(L"capacity"));
    }
    EXPECT_THAT(capacities, ElementsAre(L"2048", std::to_wstring(properties.size() + 1)));
}

// One more than the longest that is taken, and what no memory holds.
class AbsurdLengthTest : public MsiInterfaceTest, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(AbsurdLengthTest, IsRefused) {
    const std::wstring length = std::to_wstring(GetParam());
    MsiInterface gateway = Gateway({{L"package", L"a.msi"}, {L"propertiesLength", length}});
    std::wstring value = L"untouched";
    EXPECT_EQ(gateway.GetPropertyValue(package, L"A", L"1033", value), MsiCode::PropertyNotFound);
    EXPECT_EQ(gateway.GetPropertyValue(package, L"B", L"1033", value), MsiCode::PropertyNotFound);
    EXPECT_EQ(value, L"untouched");
    EXPECT_THAT(CallNames(), ElementsAre(L"MsiInitialize", L"MsiEnableInstallLog", L"MsiGetProperties"));
    EXPECT_THAT(BasicLog(), ElementsAre(Record(L"ERROR", L"Brevanto.dll asks for a document of " + length +
                                                             L" characters for " + package)));
}

INSTANTIATE_TEST_SUITE_P(Characters, AbsurdLengthTest, testing::Values((1U << 26U) + 1, 0xFFFFFFFFU));

TEST_F(MsiInterfaceTest, TakesADocumentThatJustFits) {
    const std::wstring properties = L"<A>" + std::wstring(2047 - 7, L'x') + L"</A>";
    MsiInterface gateway = Gateway({{L"package", L"a.msi"}, {L"properties", properties}});
    std::wstring value;
    EXPECT_EQ(gateway.GetPropertyValue(package, L"A", L"1033", value), 0U);
    EXPECT_EQ(value.size(), 2040U);
    EXPECT_THAT(CallNames(), ElementsAre(L"MsiInitialize", L"MsiEnableInstallLog", L"MsiGetProperties"));
}

TEST_F(MsiInterfaceTest, TellsOfAPropertyThatIsAbsent) {
    MsiInterface gateway = Gateway({{L"package", L"a.msi"}, {L"properties", L"<A>1</A>"}});
    std::wstring value = L"untouched";
    EXPECT_EQ(gateway.GetPropertyValue(package, L"B", L"1033", value), MsiCode::PropertyNotFound);
    EXPECT_EQ(value, L"untouched");
    EXPECT_THAT(AdvancedLog(), Contains(Record(L"", L"Failed to find the property")));
}

TEST_F(MsiInterfaceTest, ReadsTheDocumentOfACallThatFailed) {
    MsiInterface gateway =
        Gateway({{L"package", L"a.msi"}, {L"properties", L"<A>1</A>"}, {L"propertiesCode", L"1620"}});
    std::wstring value;
    EXPECT_EQ(gateway.GetPropertyValue(package, L"A", L"1033", value), 1620U);
    EXPECT_EQ(value, L"1");
    // What is kept is taken for good.
    EXPECT_EQ(gateway.GetPropertyValue(package, L"A", L"1033", value), 0U);
}

TEST_F(MsiInterfaceTest, KeepsAFailedReadingForGood) {
    MsiInterface gateway = Gateway();
    std::wstring value;
    EXPECT_EQ(gateway.GetPropertyValue(package, L"A", L"1033", value), 1168U);
    EXPECT_EQ(gateway.GetPropertyValue(package, L"A", L"1033", value), 1168U);
    EXPECT_THAT(CallNames(), ElementsAre(L"MsiInitialize", L"MsiEnableInstallLog", L"MsiGetProperties"));
}

struct MissingExport {
    std::wstring name;
    std::wstring record;
};

class MissingExportTest : public MsiInterfaceTest, public testing::WithParamInterface<MissingExport> {};

TEST_P(MissingExportTest, IsToldAndGivesANeutralResult) {
    bool upToDate = true;
    bool state = false;
    std::wstring value;
    {
        MsiInterface gateway = Gateway({{L"package", L"a.msi"},
                                        {L"properties", L"<A>1</A>"},
                                        {L"state", L"1", L"0", L"0", L"0"},
                                        {L"install", L"return", L"5"},
                                        {L"uninstall", L"return", L"5"}},
                                       GetParam().name);
        const bool lacks[] = {GetParam().name == L"MsiInstallApp", GetParam().name == L"MsiUninstallApp",
                              GetParam().name == L"MsiGetProperties",
                              GetParam().name == L"MsiIsAppInstalledByLang"};
        EXPECT_EQ(gateway.InstallApp(package, &KeepMessage, L""), lacks[0] ? 0U : 5U);
        EXPECT_EQ(gateway.UninstallApp(package, &KeepMessage), lacks[1] ? 0U : 5U);
        EXPECT_EQ(gateway.GetPropertyValue(package, L"A", L"1033", value), lacks[2] ? 1168U : 0U);
        EXPECT_EQ(gateway.IsAppInstalled(package, upToDate, state, state), !lacks[3]);
        EXPECT_EQ(upToDate, lacks[3]);
        gateway.Cancel();
    }
    EXPECT_THAT(AdvancedLog(), Contains(Record(L"", GetParam().record)));
    EXPECT_THAT(CallNames(), testing::Not(Contains(GetParam().name)));
    EXPECT_THAT(BasicLog(), IsEmpty());
}

const MissingExport missingExports[] = {
    {L"MsiInitialize", L"Failed to find MsiInitialize method"},
    {L"MsiUninitialize", L"Failed to find MsiUninitialize method"},
    {L"MsiInstallApp", L"Failed to find MsiInstallApp method"},
    {L"MsiUninstallApp", L"Failed to find MsiUninstallApp method"},
    {L"MsiCancel", L"Failed to find MsiCancel method"},
    {L"MsiGetProperties", L"Failed to find MsiGetPropertyValue method"},
    {L"MsiIsAppInstalledByLang", L"Failed to find MsiIsAppInstalled method"},
    {L"MsiEnableInstallLog", L"Failed to find MsiEnableInstallLog method"},
};

INSTANTIATE_TEST_SUITE_P(Exports, MissingExportTest, testing::ValuesIn(missingExports),
                         [](const auto& missing) {
                             return std::string(missing.param.name.begin(), missing.param.name.end());
                         });

TEST_F(MsiInterfaceTest, AsksAgainForAPackageWhosePropertiesNoExportCouldGive) {
    MsiInterface gateway = Gateway({}, L"MsiGetProperties");
    std::wstring value;
    gateway.GetPropertyValue(package, L"A", L"1033", value);
    gateway.GetPropertyValue(package, L"A", L"1033", value);
    EXPECT_THAT(AdvancedMessages(),
                ElementsAre(L"Failed to find MsiGetPropertyValue method", L"Failed to find the property",
                            L"Failed to find MsiGetPropertyValue method", L"Failed to find the property"));
}

}  // namespace
