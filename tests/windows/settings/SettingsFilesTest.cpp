#include <windows.h>

#include <cerrno>

#include "CommonLib/Files.h"
#include "CommonLib/Utf8.h"
#include "framework/Handles.h"
#include "settings/SettingsFiles.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/windows/world/SettingsWorld.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr wchar_t badVendor[] =
    L"Default Settings file does not have Vendor name. Bad configuration found. Ensure UTF-8 file format is "
    L"used.";

class SettingsFilesTest : public SettingsWorld {
protected:
    std::string OemElement() const { return "<OEM>" + ToUtf8(vendor) + "</OEM>"; }
    std::wstring WideOem() const { return L"<OEM>" + vendor + L"</OEM>"; }

    // Loads a default file of these bytes after the vendor's element.
    void LoadDefaults(const std::string& bytes) {
        AddDefaults(OemElement() + bytes);
        ASSERT_EQ(::LoadDefaults(Settings()), 0);
    }
    int Merge(const std::string& bytes) {
        AddUserSettings(bytes);
        return MergeFile(Settings(), UserSettingsPath());
    }
    static std::wstring DefaultsPath() { return GetExeDirectory() + L"\\..\\defaultInstallSettings.xml"; }
    static std::wstring UserSettingsPath() { return GetExeDirectory() + L"\\..\\PackageUserSettings.xml"; }
};

TEST_F(SettingsFilesTest, KeepsTheWholeTextOfTheFile) {
    LoadDefaults("<?xml version='1.0'?><!-- <A>1</A> --><B c='d'>2</B>");
    EXPECT_EQ(Document(), WideOem() + L"<?xml version='1.0'?><!-- <A>1</A> --><B c='d'>2</B>");
    EXPECT_EQ(Settings().GetString(TextTag(L"A")), L"1");
    EXPECT_EQ(Settings().GetString(TextTag(L"B")), L"2");
}

TEST_F(SettingsFilesTest, KeepsAByteOrderMarkAtTheHead) {
    AddDefaults("\xEF\xBB\xBF" + OemElement());
    EXPECT_EQ(::LoadDefaults(Settings()), 0);
    EXPECT_EQ(Settings().StripMarker(), L"<\xFEFF" + WideOem());
    EXPECT_EQ(Settings().GetString(Tag::OEM), vendor);
}

DWORD WINAPI TellLongModulePath(HMODULE, LPWSTR buffer, DWORD size) {
    const std::wstring path = L"C:\\" + std::wstring(300, L'f') + L"\\x64\\Kestrune.exe";
    if (size <= path.size()) return size;
    buffer[path.copy(buffer, path.size())] = L'\0';
    return static_cast<DWORD>(path.size());
}

TEST_F(SettingsFilesTest, SaysThatThePathOfThePackageIsTooLong) {
    const PatchedImport naming("GetModuleFileNameW", &TellLongModulePath);
    EXPECT_NE(::LoadDefaults(Settings()), 0);
    EXPECT_THAT(BasicLog(), testing::ElementsAre(Record(
                                L"ERROR", L"The path of the package is too long: C:\\" +
                                              std::wstring(300, L'f') + L"\\defaultInstallSettings.xml")));
}

TEST_F(SettingsFilesTest, DecodesUtf8) {
    LoadDefaults("<A>\xC3\xA4\xE2\x82\xAC\xF0\x9F\x96\xA8</A>");
    EXPECT_EQ(Settings().GetString(TextTag(L"A")), L"\u00E4\u20AC\xD83D\xDDA8");
}

TEST_F(SettingsFilesTest, ReadsACarriageReturnAndLineFeedAsOneLineFeed) {
    LoadDefaults("<A>one\r\ntwo</A>\r\n<B>3</B>\r\n");
    EXPECT_EQ(Settings().GetString(TextTag(L"A")), L"one\ntwo");
    EXPECT_EQ(Document(), WideOem() + L"<A>one\ntwo</A>\n<B>3</B>\n");
}

TEST_F(SettingsFilesTest, ReadsALineThatIsLongerThanOnePiece) {
    LoadDefaults("<A>" + std::string(10000, 'x') + "</A>");
    EXPECT_EQ(Settings().GetString(TextTag(L"A")), std::wstring(10000, L'x'));
}

TEST_F(SettingsFilesTest, LosesOnlyTheCharacterThatTwoPiecesShare) {
    const std::string head = OemElement() + "<A>";
    AddDefaults(head + std::string(2046 - head.size(), 'x') + "\xC3\xA4" + "y</A>");
    EXPECT_EQ(::LoadDefaults(Settings()), 0);
    EXPECT_EQ(Settings().GetString(TextTag(L"A")), std::wstring(2046 - head.size(), L'x') + L"\uFFFD\uFFFDy");
}

TEST_F(SettingsFilesTest, DropsTheRestOfALineBehindANullByte) {
    using namespace std::string_literals;
    LoadDefaults("<A>1</A>\0<B>2</B>\n<C>3</C>"s);
    EXPECT_EQ(Document(), WideOem() + L"<A>1</A><C>3</C>");
}

TEST_F(SettingsFilesTest, ReadsAValueOfAMillionCharacters) {
    LoadDefaults("<A>" + std::string(1 << 20, 'x') + "</A><B>2</B>");
    EXPECT_EQ(Settings().GetString(TextTag(L"A")).size(), std::size_t{1} << 20);
    EXPECT_EQ(Settings().GetString(TextTag(L"B")), L"2");
}

TEST_F(SettingsFilesTest, ReadsAFileOfTenMillionBytes) {
    std::string lines;
    while (lines.size() < 10'000'000) lines += "<FILL>" + std::string(90, 'x') + "</FILL>\r\n";
    LoadDefaults(lines + "<LAST>1</LAST>");
    EXPECT_TRUE(Settings().GetBool(FlagTag(L"LAST")));
}

TEST_F(SettingsFilesTest, TellsThatTheDefaultsAreMissing) {
    EXPECT_EQ(::LoadDefaults(Settings()), ENOENT);
    EXPECT_EQ(Document(), L"");
    EXPECT_THAT(BasicLog(), IsEmpty());
    EXPECT_THAT(AdvancedLog(),
                ElementsAre(Record(L"ERROR",
                                   L"InstallSettings::ReadFromFile(), Loading InstallSettings file "
                                   L"failed! " +
                                       DefaultsPath())));
}

TEST_F(SettingsFilesTest, TakesPrinterForTheVendorOfAnEmptyFile) {
    UseVendor(L"Printer");
    AddDefaults("");
    EXPECT_EQ(::LoadDefaults(Settings()), 0);
    EXPECT_EQ(Settings().GetString(Tag::OEM), L"Printer");
    EXPECT_THAT(BasicLog(),
                ElementsAre(Record(L"ERROR", badVendor), Record(L"", L"Default Configuration File Values"),
                            Record(L"", L"<OEM>Printer</OEM>")));
}

TEST_F(SettingsFilesTest, TakesPrinterForTheVendorOfAFileInUtf16) {
    UseVendor(L"Printer");
    AddDefaults("\xFF\xFE" + ToUtf16Bytes(L"<OEM>Maker</OEM>\r\n"));
    EXPECT_EQ(::LoadDefaults(Settings()), 0);
    EXPECT_EQ(Settings().GetString(Tag::OEM), L"Printer");
    EXPECT_THAT(BasicLog(), Contains(Record(L"ERROR", badVendor)));
}

TEST_F(SettingsFilesTest, LogsTheVendorsValuesUnderItsName) {
    LoadDefaults("<A>1</A>");
    EXPECT_THAT(BasicLog(), ElementsAre(Record(L"", L"Default Configuration File Values"),
                                        Record(L"", WideOem() + L"<A>1</A>")));
}

TEST_F(SettingsFilesTest, LogsADocumentWithTheStartMarkerWithoutIt) {
    // The mark in UTF-8 that was taken for single characters and put into UTF-8 once more.
    AddDefaults("\xC3\xAF\xC2\xBB\xC2\xBF" + OemElement());
    EXPECT_EQ(::LoadDefaults(Settings()), 0);
    EXPECT_EQ(BasicMessages().back(), WideOem());
}

TEST_F(SettingsFilesTest, LogsTheMergedValuesOnceMore) {
    LoadDefaults("<A>1</A>");
    EXPECT_EQ(Merge("<A>2</A>"), 0);
    EXPECT_THAT(BasicMessages(), ElementsAre(L"Default Configuration File Values", WideOem() + L"<A>1</A>",
                                             L"Default Configuration File Values", WideOem() + L"<A>2</A>"));
}

TEST_F(SettingsFilesTest, ReplacesADefaultByTheFirstAndAppendsTheLater) {
    LoadDefaults("<A>1</A>");
    EXPECT_EQ(Merge("<A>2</A><A>3</A>"), 0);
    EXPECT_EQ(Document(), WideOem() + L"<A>2</A><A>3</A>");
    EXPECT_EQ(Settings().GetString(TextTag(L"A")), L"2");
}

TEST_F(SettingsFilesTest, KeepsTheFurtherValuesOfARepeatedDefault) {
    LoadDefaults("<A>1</A><A>2</A>");
    EXPECT_EQ(Merge("<A>3</A>"), 0);
    EXPECT_THAT(Settings().GetAllValues(ListTag(L"A")), ElementsAre(L"2", L"3"));
}

TEST_F(SettingsFilesTest, LeavesADefaultUntouchedByAnEmptyElement) {
    LoadDefaults("<A>1</A>");
    EXPECT_EQ(Merge("<A></A><B>2</B>"), 0);
    EXPECT_EQ(Document(), WideOem() + L"<A>1</A><B>2</B>");
}

TEST_F(SettingsFilesTest, TakesEachDeviceOnALineOfItsOwn) {
    LoadDefaults("");
    EXPECT_EQ(
        Merge("<DEVICE><DRIVER_ID>PS</DRIVER_ID></DEVICE>\r\n<DEVICE><DRIVER_ID>Fax</DRIVER_ID></DEVICE>"),
        0);
    EXPECT_THAT(Settings().GetAllValues(Tag::DEVICE),
                ElementsAre(L"<DRIVER_ID>PS</DRIVER_ID>", L"<DRIVER_ID>Fax</DRIVER_ID>"));
}

TEST_F(SettingsFilesTest, TakesOnlyTheInsideOfADeviceOverSeveralLines) {
    LoadDefaults("<PORT_NAME>default</PORT_NAME>");
    EXPECT_EQ(Merge("<DEVICE>\r\n<PORT_NAME>10.0.0.7</PORT_NAME>\r\n</DEVICE>\r\n"), 0);
    EXPECT_THAT(Settings().GetAllValues(Tag::DEVICE), IsEmpty());
    EXPECT_EQ(Settings().GetString(Tag::PORT_NAME), L"10.0.0.7");
}

TEST_F(SettingsFilesTest, ChangesNothingWithoutAFileToMerge) {
    LoadDefaults("<A>1</A>");
    EXPECT_EQ(MergeFile(Settings(), UserSettingsPath()), ENOENT);
    EXPECT_EQ(Document(), WideOem() + L"<A>1</A>");
    EXPECT_THAT(AdvancedLog(), Contains(Record(L"ERROR",
                                               L"InstallSettings::ReadFromFile(), Loading "
                                               L"InstallSettings file failed! " +
                                                   UserSettingsPath())));
}

TEST_F(SettingsFilesTest, ReadsFilesThatAnotherProgramHasOpenToWrite) {
    AddDefaults(OemElement() + "<A>1</A>");
    AddUserSettings("<A>2</A>");
    const auto open = [](const std::wstring& path) {
        return FileHandle(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                      nullptr));
    };
    const FileHandle defaults = open(DefaultsPath());
    const FileHandle user = open(UserSettingsPath());
    ASSERT_TRUE(defaults && user);
    EXPECT_EQ(::LoadDefaults(Settings()), 0);
    EXPECT_EQ(MergeFile(Settings(), UserSettingsPath()), 0);
    EXPECT_EQ(Settings().GetString(TextTag(L"A")), L"2");
}

TEST_F(SettingsFilesTest, ChangesNothingByAnEmptyFile) {
    LoadDefaults("<A>1</A>");
    EXPECT_EQ(Merge(""), 0);
    EXPECT_EQ(Document(), WideOem() + L"<A>1</A>");
}

TEST_F(SettingsFilesTest, GoesOnInTheLogOfTheVendorThatTheUserFileNames) {
    LoadDefaults("<A>1</A>");
    const std::wstring other = vendor + L" and Sons";
    UseVendor(other);
    EXPECT_EQ(Merge("<OEM>" + ToUtf8(other) + "</OEM>"), 0);
    EXPECT_THAT(BasicMessages(),
                ElementsAre(L"Default Configuration File Values", L"<A>1</A><OEM>" + other + L"</OEM>"));
}

TEST_F(SettingsFilesTest, TakesAFileThatNobodyMayReadForMissing) {
    LoadDefaults("<A>1</A>");
    AddUserSettings("<A>2</A>");
    const FileHandle kept(
        CreateFileW(UserSettingsPath().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(kept);
    EXPECT_NE(MergeFile(Settings(), UserSettingsPath()), 0);
    EXPECT_EQ(Settings().GetString(TextTag(L"A")), L"1");
}

}  // namespace
