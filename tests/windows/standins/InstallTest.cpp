#include <gmock/gmock.h>

#include <algorithm>

#include "standins/Brevanto/InstallLog.h"
#include "tests/windows/standins/LibraryFixture.h"

using testing::Contains;
using testing::Each;
using testing::IsEmpty;

namespace {

class InstallTest : public LibraryTest {};

TEST_F(InstallTest, PutsAPackageOnTheSystem) {
    EXPECT_EQ(State(L"plain-1.0.msi"), (PackageState{}));
    EXPECT_EQ(Install(L"plain-1.0.msi"), 0U);
    EXPECT_TRUE(Exists(InstalledFile(L"Plain")));
    EXPECT_EQ(State(L"plain-1.0.msi"), (PackageState{.installed = true, .upToDate = true}));
}

TEST_F(InstallTest, HandsTheElementsOfTheDocumentOn) {
    const std::wstring device = L"<DEVICE><PRINTER_NAME>Front desk</PRINTER_NAME></DEVICE>";
    EXPECT_EQ(Install(L"plain-1.0.msi", L"<PRINTER_INFO>" + device +
                                            L"</PRINTER_INFO><TARGET_DIR>C:\\Test target\\Here</TARGET_DIR>"
                                            L"<LANGUAGEID>1033</LANGUAGEID>"),
              0U);
    EXPECT_EQ(Noted(L"plain", L"PRINTER_INFO"), device);
    EXPECT_EQ(Noted(L"plain", L"LANGUAGEID"), L"1033");
    EXPECT_TRUE(Exists(L"C:\\Test target\\Here\\Plain\\payload.txt"));
    EXPECT_FALSE(Exists(InstalledFile(L"Plain")));
}

class QuotingTest : public LibraryTest, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(QuotingTest, KeepsEachTextInItsOwnProperty) {
    const std::wstring text = GetParam();
    EXPECT_EQ(Install(L"plain-1.0.msi", L"<DEVICEFRIENDLYNAME>" + text +
                                            L"</DEVICEFRIENDLYNAME><INFOCENTER_LINK>next</INFOCENTER_LINK>"),
              0U);
    EXPECT_EQ(Noted(L"plain", L"DEVICEFRIENDLYNAME"), text);
    EXPECT_EQ(Noted(L"plain", L"INFOCENTER_LINK"), L"next");
    EXPECT_TRUE(Exists(InstalledFile(L"Plain")));
}

// Quotation marks at the ends of a value are left to CommandLineTest: Wine misreads three in a row.
INSTANTIATE_TEST_SUITE_P(Texts, QuotingTest,
                         testing::Values(L"two words", L"a \"quoted\" word",
                                         L"x\" REMOVE=ALL TARGET_DIR=\"C:\\y", L"LANGUAGEID=1",
                                         L"19\" printer", L"\u201ccurly\u201d", L"back\\slash\\",
                                         L"gr\u00fc\u00dfe \u65e5\u672c", L"it's %TEMP% & <more>"));

TEST_F(InstallTest, ReportsAPercentageThatNeverFallsAndNeverPassesHundred) {
    EXPECT_EQ(Install(L"plain-1.0.msi"), 0U);
    const std::vector<int> percentages = Percentages();
    ASSERT_GT(percentages.size(), 2U);
    EXPECT_EQ(percentages.size(), Messages().size());
    EXPECT_EQ(percentages.front(), 0);
    EXPECT_EQ(percentages.back(), 100);
    EXPECT_TRUE(std::is_sorted(percentages.begin(), percentages.end()));
}

TEST_F(InstallTest, StartsThePercentageAnewForEachPackage) {
    EXPECT_EQ(Install(L"plain-1.0.msi"), 0U);
    const std::size_t before = Percentages().size();
    EXPECT_EQ(Install(L"translated.msi"), 0U);
    ASSERT_GT(Percentages().size(), before);
    EXPECT_EQ(Percentages()[before], 0);
}

TEST_F(InstallTest, WorksWithoutACallbackAndWithoutADocument) {
    const std::wstring path = Package(L"plain-1.0.msi");
    EXPECT_EQ(library.installApp(path.c_str(), static_cast<std::uint32_t>(path.size()), nullptr, nullptr, 0),
              0U);
    EXPECT_TRUE(Exists(InstalledFile(L"Plain")));
}

TEST_F(InstallTest, ReadsThePathUpToTheLengthThatIsGiven) {
    const std::wstring path = Package(L"plain-1.0.msi");
    const std::wstring longer = path + L".and more";
    EXPECT_EQ(library.installApp(longer.c_str(), static_cast<std::uint32_t>(path.size()), nullptr, L"", 0),
              0U);
}

TEST_F(InstallTest, TellsOfAPackageThatFails) {
    EXPECT_EQ(Install(L"failing.msi"), static_cast<std::uint32_t>(ERROR_INSTALL_FAILURE));
    EXPECT_EQ(State(L"failing.msi"), (PackageState{}));
    EXPECT_FALSE(Exists(InstalledFile(L"Failing")));
}

TEST_F(InstallTest, TellsOfAPackageThatWantsARestart) {
    EXPECT_EQ(Install(L"restart.msi"), static_cast<std::uint32_t>(ERROR_SUCCESS_REBOOT_REQUIRED));
    EXPECT_TRUE(State(L"restart.msi").installed);
    EXPECT_EQ(Percentages().back(), 100);
}

TEST_F(InstallTest, GivesTheAnswerAboutFilesInUseBack) {
    AnswerWith(
        [](const std::wstring& message) { return message.starts_with(L"<FILE_IN_USE>") ? IDRETRY : IDOK; });
    EXPECT_EQ(Install(L"filesinuse.msi"), 0U);
    EXPECT_THAT(Messages(), Contains(L"<FILE_IN_USE>true</FILE_IN_USE>"
                                     L"<APPLICATION_NAME>Inkwell\r\nScan Desk</APPLICATION_NAME>"));
}

TEST_F(InstallTest, GivesAnotherAnswerAboutFilesInUseBackToo) {
    AnswerWith(
        [](const std::wstring& message) { return message.starts_with(L"<FILE_IN_USE>") ? IDIGNORE : IDOK; });
    EXPECT_EQ(Install(L"filesinuse.msi"), static_cast<std::uint32_t>(ERROR_INSTALL_FAILURE));
}

TEST_F(InstallTest, IsUndoneByARemoval) {
    EXPECT_EQ(Install(L"plain-1.0.msi"), 0U);
    EXPECT_EQ(Uninstall(L"plain-1.0.msi"), 0U);
    EXPECT_EQ(State(L"plain-1.0.msi"), (PackageState{}));
    EXPECT_FALSE(Exists(InstalledFile(L"Plain")));
}

TEST_F(InstallTest, OfNothingCannotBeUndone) {
    EXPECT_EQ(Uninstall(L"plain-1.0.msi"), static_cast<std::uint32_t>(ERROR_UNKNOWN_PRODUCT));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(InstallTest, ReportsTheRemovalToo) {
    EXPECT_EQ(Install(L"plain-1.0.msi"), 0U);
    const std::size_t before = Percentages().size();
    EXPECT_EQ(Uninstall(L"plain-1.0.msi"), 0U);
    std::vector<int> removal = Percentages();
    removal.erase(removal.begin(), removal.begin() + static_cast<std::ptrdiff_t>(before));
    ASSERT_GT(removal.size(), 1U);
    EXPECT_EQ(removal.front(), 0);
    EXPECT_EQ(removal.back(), 100);
    EXPECT_TRUE(std::is_sorted(removal.begin(), removal.end()));
}

TEST_F(InstallTest, IsWrittenToTheLogOfTheVendor) {
    const std::wstring path = brevanto::InstallLogPath(L"Testwerk");
    DeleteFileW(path.c_str());
    EXPECT_EQ(Install(L"plain-1.0.msi"), 0U);
    WIN32_FILE_ATTRIBUTE_DATA first{};
    ASSERT_TRUE(GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &first));
    EXPECT_GT(first.nFileSizeLow, 0U);
    EXPECT_EQ(Uninstall(L"plain-1.0.msi"), 0U);
    WIN32_FILE_ATTRIBUTE_DATA second{};
    ASSERT_TRUE(GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &second));
    EXPECT_GT(second.nFileSizeLow, first.nFileSizeLow);
}

TEST_F(InstallTest, NeverCallsBackFromALaterRun) {
    static int earlierCalls = 0;
    const std::wstring path = Package(L"plain-1.0.msi");
    const auto earlier = [](const wchar_t*) -> std::int32_t { return ++earlierCalls, IDOK; };
    EXPECT_EQ(library.installApp(path.c_str(), static_cast<std::uint32_t>(path.size()), earlier, L"", 0), 0U);
    const int calls = earlierCalls;
    EXPECT_GT(calls, 0);
    EXPECT_EQ(Uninstall(L"plain-1.0.msi"), 0U);
    EXPECT_EQ(earlierCalls, calls);
}

TEST_F(InstallTest, EndsWithACancelWhenTheCallbackThrows) {
    AnswerWith([](const std::wstring& message) -> std::int32_t {
        if (message.starts_with(L"<FILE_IN_USE>")) throw 1;
        return IDOK;
    });
    EXPECT_EQ(Install(L"filesinuse.msi"), static_cast<std::uint32_t>(ERROR_INSTALL_FAILURE));
}

}  // namespace
