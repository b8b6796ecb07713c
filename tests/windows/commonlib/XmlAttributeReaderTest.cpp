#include <gtest/gtest.h>

#include <thread>

#include "CommonLib/XmlAttributeReader.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/ScratchFolder.h"

namespace {

constexpr std::uint32_t elementNotFound = 1168;

class XmlAttributeReaderTest : public testing::Test {
protected:
    std::wstring File(std::string_view bytes) const {
        WriteBytes(folder / L"file.xml", bytes);
        return folder / L"file.xml";
    }

    // The attribute's value, or the code in brackets.
    static std::wstring Read(const std::wstring& pathOrText, const std::wstring& query,
                             const std::wstring& attribute) {
        const XmlAttributeReader reader(pathOrText);
        EXPECT_TRUE(reader.IsLoaded());
        std::wstring value = L"untouched";
        const std::uint32_t code = reader.GetAttribute(query, attribute, value);
        if (code == 0) return value;
        EXPECT_EQ(value, L"untouched");
        return L"[" + std::to_wstring(code) + L"]";
    }

    ScratchFolder folder;
};

TEST_F(XmlAttributeReaderTest, ReadsAFile) {
    EXPECT_EQ(Read(File("<a><b c='1' d='2'/></a>"), L"a/b", L"d"), L"2");
}

TEST_F(XmlAttributeReaderTest, ReadsXmlItselfWhereThePathIsNone) {
    EXPECT_EQ(Read(L"<a><b c='1'/></a>", L"//b", L"c"), L"1");
}

TEST_F(XmlAttributeReaderTest, ReadsTheFirstOfTheNodes) {
    EXPECT_EQ(Read(L"<a><b c='1'/><b c='2'/></a>", L"//b", L"c"), L"1");
    EXPECT_EQ(Read(L"<a><b/><b c='2'/></a>", L"//b", L"c"), L"[1168]");
}

TEST_F(XmlAttributeReaderTest, TellsThatThereIsNoSuchNodeOrAttribute) {
    EXPECT_EQ(Read(L"<a b='1'/>", L"//c", L"b"), L"[1168]");
    EXPECT_EQ(Read(L"<a b='1'/>", L"a", L"c"), L"[1168]");
    EXPECT_EQ(Read(L"<a b='1'/>", L"a", L"B"), L"[1168]");
}

TEST_F(XmlAttributeReaderTest, ReadsAnEmptyAttribute) {
    EXPECT_EQ(Read(L"<a b=''/>", L"a", L"b"), L"");
}

TEST_F(XmlAttributeReaderTest, ReadsUtf16AndEntities) {
    EXPECT_EQ(Read(File("\xFF\xFE" + ToUtf16Bytes(L"<?xml version='1.0' encoding='UTF-16'?><a b='\u20AC'/>")),
                   L"a", L"b"),
              L"\u20AC");
    EXPECT_EQ(Read(L"<a b='&lt;&amp;&#228;'/>", L"a", L"b"), L"<&\u00E4");
}

TEST_F(XmlAttributeReaderTest, ReadsUtf8WithAMark) {
    EXPECT_EQ(Read(File("\xEF\xBB\xBF<a b='\xC3\xA4'/>"), L"a", L"b"), L"\u00E4");
}

TEST_F(XmlAttributeReaderTest, DoesNotLoadBrokenXml) {
    for (const wchar_t* text : {L"<a><b></a>", L"", L"<a b=1/>", L"no xml at all"}) {
        EXPECT_FALSE(XmlAttributeReader(text).IsLoaded()) << text;
    }
    EXPECT_FALSE(XmlAttributeReader(File("<a><b></a>")).IsLoaded());
}

TEST_F(XmlAttributeReaderTest, FindsNothingInADocumentThatDidNotLoad) {
    std::wstring value;
    EXPECT_EQ(XmlAttributeReader(folder / L"missing.xml").GetAttribute(L"//a", L"b", value), elementNotFound);
}

TEST_F(XmlAttributeReaderTest, TakesNothingFromOutsideTheDocument) {
    WriteBytes(folder / L"secret.txt", "secret");
    WriteBytes(folder / L"other.dtd", "<!ATTLIST a b CDATA 'from outside'>");
    const std::wstring xml = L"<!DOCTYPE a SYSTEM '" + (folder / L"other.dtd") + L"' [<!ENTITY e SYSTEM '" +
                             (folder / L"secret.txt") + L"'>]><a c='1'><d>&e;</d></a>";
    const XmlAttributeReader reader(xml);
    std::wstring value = L"untouched";
    EXPECT_EQ(reader.GetAttribute(L"a", L"b", value), elementNotFound);
    EXPECT_EQ(value, L"untouched");
}

TEST_F(XmlAttributeReaderTest, LeavesComAsItWasOnAThreadOfAnotherMode) {
    std::thread([] {
        ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        EXPECT_EQ(Read(L"<a b='1'/>", L"a", L"b"), L"1");
        // Still initialised, and by this thread alone.
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), RPC_E_CHANGED_MODE);
        CoUninitialize();
    }).join();
}

TEST_F(XmlAttributeReaderTest, FindsNothingOnASystemWithoutTheParser) {
    const PatchedImport patch(
        "CoCreateInstance",
        +[](REFCLSID, LPUNKNOWN, DWORD, REFIID, void**) -> HRESULT { return REGDB_E_CLASSNOTREG; });
    const XmlAttributeReader reader(L"<a b='1'/>");
    std::wstring value;
    EXPECT_FALSE(reader.IsLoaded());
    EXPECT_EQ(reader.GetAttribute(L"a", L"b", value), elementNotFound);
}

}  // namespace
