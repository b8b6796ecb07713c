#include <gmock/gmock.h>

#include <fstream>

#include "tests/windows/standins/LibraryFixture.h"

using testing::HasSubstr;
using testing::Not;

namespace {

class PropertiesTest : public LibraryTest {
protected:
    struct Answer {
        std::uint32_t code;
        std::uint32_t needed;
        std::wstring text;
    };

    // Asks with a buffer of which each character was "#" before.
    Answer Ask(const std::wstring& fileName, const wchar_t* language, std::uint32_t capacity) {
        std::vector<wchar_t> buffer(capacity + 1, L'#');
        Answer answer{.code = 0, .needed = 4711, .text = {}};
        answer.code = library.getProperties(Package(fileName).c_str(), language, buffer.data(), capacity,
                                            &answer.needed);
        buffer.back() = L'\0';
        answer.text = buffer.data();
        return answer;
    }
};

TEST_F(PropertiesTest, AreATagDocumentOfTheWholeTable) {
    const Answer answer = Ask(L"plain-1.0.msi", L"1033", 4096);
    EXPECT_EQ(answer.code, 0U);
    EXPECT_EQ(answer.needed, answer.text.size());
    EXPECT_THAT(answer.text,
                HasSubstr(L"<ProductName>Plain</ProductName><ProductVersion>1.0.0</ProductVersion>"));
}

TEST_F(PropertiesTest, AreTakenForTheLanguage) {
    const std::wstring german = Ask(L"translated.msi", L"1031", 4096).text;
    EXPECT_THAT(
        german,
        HasSubstr(L"<MSIDESCRIPTION>Beschreibung f\u00fcr M\u00fcller & S\u00f6hne</MSIDESCRIPTION>"));
    EXPECT_THAT(german, HasSubstr(L"<DRIVERNAME>Nur auf Deutsch</DRIVERNAME>"));
    EXPECT_THAT(german, Not(HasSubstr(L"1031")));
    EXPECT_THAT(german, Not(HasSubstr(L"Une description")));
    const std::wstring english = Ask(L"translated.msi", L"1033", 4096).text;
    EXPECT_THAT(english, HasSubstr(L"<MSIDESCRIPTION>A description</MSIDESCRIPTION>"));
    EXPECT_THAT(english, Not(HasSubstr(L"DRIVERNAME")));
}

TEST_F(PropertiesTest, AreReadInEveryScript) {
    EXPECT_THAT(Ask(L"translated.msi", L"1041", 4096).text,
                HasSubstr(L"<MSIDESCRIPTION>\u8aac\u660e\u3067\u3059</MSIDESCRIPTION>"));
    EXPECT_THAT(Ask(L"translated.msi", L"1066", 4096).text,
                HasSubstr(L"<MSIDESCRIPTION>M\u1ed9t l\u1eddi m\u00f4 t\u1ea3</MSIDESCRIPTION>"));
}

TEST_F(PropertiesTest, ThatDoNotFitTellTheirLengthAndLeaveTheBufferAlone) {
    const Answer first = Ask(L"long.msi", L"1033", 2048);
    EXPECT_EQ(first.code, static_cast<std::uint32_t>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_GT(first.needed, 2047U);
    EXPECT_EQ(first.text, std::wstring(2048, L'#'));

    const Answer second = Ask(L"long.msi", L"1033", first.needed + 1);
    EXPECT_EQ(second.code, 0U);
    EXPECT_EQ(second.needed, first.needed);
    EXPECT_EQ(second.text.size(), first.needed);
    EXPECT_THAT(second.text, HasSubstr(L"<ZZLAST>still there</ZZLAST>"));
}

TEST_F(PropertiesTest, NeedRoomForTheTerminator) {
    const std::uint32_t length = Ask(L"plain-1.0.msi", L"1033", 0).needed;
    EXPECT_EQ(Ask(L"plain-1.0.msi", L"1033", length).code,
              static_cast<std::uint32_t>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(Ask(L"plain-1.0.msi", L"1033", length + 1).code, 0U);
}

TEST_F(PropertiesTest, OfAFileThatIsNoPackageAreAnErrorOfLengthZero) {
    std::ofstream("no-package.msi") << "This is no package.";
    std::uint32_t needed = 4711;
    wchar_t buffer[10] = L"#";
    EXPECT_NE(library.getProperties(L"no-package.msi", L"1033", buffer, 10, &needed), 0U);
    EXPECT_EQ(needed, 0U);
    EXPECT_EQ(std::wstring(buffer), L"#");
    EXPECT_NE(Ask(L"missing.msi", L"1033", 10).code, 0U);
    EXPECT_NE(Install(L"missing.msi"), 0U);
    DeleteFileW(L"no-package.msi");
}

TEST_F(PropertiesTest, OfNoPathAreAnInvalidParameter) {
    std::uint32_t needed = 4711;
    EXPECT_EQ(library.getProperties(nullptr, nullptr, nullptr, 0, &needed),
              static_cast<std::uint32_t>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(needed, 0U);
    EXPECT_EQ(library.installApp(nullptr, 0, nullptr, nullptr, 0),
              static_cast<std::uint32_t>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(library.uninstallApp(nullptr, 0, nullptr), static_cast<std::uint32_t>(ERROR_INVALID_PARAMETER));
}

}  // namespace
