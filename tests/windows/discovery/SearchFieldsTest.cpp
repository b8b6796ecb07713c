// What the fields of the search dialog say of a text, and when OK can be pressed.

#include "resources/resource.h"
#include "tests/windows/world/SearchDialogWorld.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using SearchFieldsTest = SearchDialogWorld;

struct FieldCase {
    const wchar_t* text;
    bool isAccepted;
};

void PrintTo(const FieldCase& field, std::ostream* stream) {
    *stream << testing::PrintToString(std::wstring(field.text));
}

class HostFieldTest : public SearchDialogWorld, public testing::WithParamInterface<FieldCase> {};

TEST_P(HostFieldTest, IsCheckedWhenTheUserPauses) {
    Open();
    TypeHost(GetParam().text);
    Pause();
    EXPECT_EQ(IsEnabled(IDOK), GetParam().isAccepted);
    EXPECT_EQ(balloons, GetParam().isAccepted ? std::vector<std::wstring>()
                                              : std::vector<std::wstring>{L"MSG_INVALID_IPHOST_NAME"});
}

INSTANTIATE_TEST_SUITE_P(Texts, HostFieldTest,
                         testing::Values(FieldCase{L"10.0.0.1", true}, FieldCase{L"2001:db8::1", true},
                                         FieldCase{L"printer-7.example", true}, FieldCase{L"a b", false},
                                         FieldCase{L"-x", false}, FieldCase{L"2001:db8::g", false}));

TEST_F(SearchFieldsTest, SaysNothingAboutAnEmptyHost) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_THAT(balloons, IsEmpty());
}

TEST_F(SearchFieldsTest, RefusesAGoodHostThatIsAsItWas) {
    Open();
    TypeHost(L"printer");
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
    // A character is typed and deleted again before the check.
    Type(IDC_MODIFY_SEARCH_HOST, L"printers");
    Type(IDC_MODIFY_SEARCH_HOST, L"printer");
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
    Type(IDC_MODIFY_SEARCH_HOST, L"printer2");
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(SearchFieldsTest, ChecksAnUnchangedHostOnceMoreBehindARadioClick) {
    Open();
    TypeHost(L"printer");
    Pause();
    Choose(IDC_MODIFY_SEARCH_LOCAL);
    Pause();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(SearchFieldsTest, LetsAnEmptyHostUseUpTheExtraCheck) {
    Open();
    TypeHost(L"printer");
    Pause();
    Type(IDC_MODIFY_SEARCH_HOST, L"");
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Pause();
    Type(IDC_MODIFY_SEARCH_HOST, L"printer");
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(SearchFieldsTest, RepeatsNoBalloonForATextThatIsStillWrong) {
    Open();
    TypeHost(L"a b");
    Pause();
    Choose(IDC_MODIFY_SEARCH_LOCAL);
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_EQ(balloons.size(), 1u);
}

TEST_F(SearchFieldsTest, KeepsAHostOfTheGreatestLength) {
    Open();
    TypeHost(std::wstring(255, L'a'));
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
    EXPECT_THAT(balloons, IsEmpty());
}

TEST_F(SearchFieldsTest, CutsAHostThatIsTooLongAtOnceAndTakesItUntested) {
    Open();
    TypeHost(std::wstring(255, L'!') + L"!");
    EXPECT_EQ(Text(IDC_MODIFY_SEARCH_HOST), std::wstring(255, L'!'));
    EXPECT_THAT(balloons, ElementsAre(L"MSG_HOSTNAME_LIMIT"));
    EXPECT_TRUE(IsEnabled(IDOK));
    DWORD caret = 0;
    SendMessageW(At(IDC_MODIFY_SEARCH_HOST), EM_GETSEL, reinterpret_cast<WPARAM>(&caret), 0);
    EXPECT_EQ(caret, 255u);
}

TEST_F(SearchFieldsTest, TakesACutHostUntilTheUserChangesIt) {
    Open();
    TypeHost(std::wstring(300, L'!'));
    EXPECT_TRUE(IsEnabled(IDOK));
    // The cut itself was a change, and the check that it sets off finds the text that it knows.
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
    Type(IDC_MODIFY_SEARCH_HOST, std::wstring(254, L'!'));
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
}

struct SubnetCase {
    const wchar_t* address;
    const wchar_t* mask;
    bool isAccepted;
    std::vector<std::wstring> balloons;
};

void PrintTo(const SubnetCase& subnet, std::ostream* stream) {
    *stream << testing::PrintToString(std::wstring(subnet.address)) << " "
            << testing::PrintToString(std::wstring(subnet.mask));
}

class SubnetFieldsTest : public SearchDialogWorld, public testing::WithParamInterface<SubnetCase> {};

TEST_P(SubnetFieldsTest, AreCheckedWhenTheUserPauses) {
    Open();
    TypeSubnet(GetParam().address, GetParam().mask);
    Pause();
    EXPECT_EQ(IsEnabled(IDOK), GetParam().isAccepted);
    EXPECT_EQ(balloons, GetParam().balloons);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SubnetFieldsTest,
    testing::Values(SubnetCase{L"10.1.0.0", L"255.255.0.0", true, {}},
                    SubnetCase{L"2001:db8::", L"ffff:ffff::", true, {}},
                    SubnetCase{L"10.1.0.0", L"24", false, {L"MSG_INVALID_SUBNET"}},
                    SubnetCase{L"10.1.0", L"255.255.0.0", false, {L"MSG_INVALID_IP"}},
                    SubnetCase{L"host", L"mask", false, {L"MSG_INVALID_IP", L"MSG_INVALID_SUBNET"}},
                    SubnetCase{L"", L"255.255.0.0", false, {}}, SubnetCase{L"10.1.0.0", L"", false, {}}));

TEST_F(SearchFieldsTest, KeepsAGoodSubnetThatIsAsItWas) {
    Open();
    TypeSubnet(L"10.1.0.0", L"255.255.0.0");
    Pause();
    Type(IDC_MODIFY_SEARCH_ADDRESS, L"10.1.0.0");
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(SearchFieldsTest, CutsAnAddressThatIsTooLongAtOnce) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    Type(IDC_MODIFY_SEARCH_MASK, L"255.255.0.0");
    Type(IDC_MODIFY_SEARCH_ADDRESS, std::wstring(46, L'1'));
    EXPECT_EQ(Text(IDC_MODIFY_SEARCH_ADDRESS), std::wstring(45, L'1'));
    EXPECT_THAT(balloons, ElementsAre(L"MSG_IP_LIMIT"));
    EXPECT_TRUE(IsEnabled(IDOK));
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
    EXPECT_EQ(balloons.size(), 1u);
}

TEST_F(SearchFieldsTest, CutsAMaskThatIsTooLongAtOnce) {
    Open();
    TypeSubnet(L"10.1.0.0", std::wstring(60, L'2'));
    EXPECT_EQ(Text(IDC_MODIFY_SEARCH_MASK), std::wstring(45, L'2'));
    EXPECT_THAT(balloons, ElementsAre(L"MSG_SUBNET_LIMIT"));
}

TEST_F(SearchFieldsTest, TestsAnAddressOfTheGreatestLength) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    Type(IDC_MODIFY_SEARCH_MASK, L"255.255.0.0");
    Type(IDC_MODIFY_SEARCH_ADDRESS, std::wstring(45, L'1'));
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_THAT(balloons, ElementsAre(L"MSG_INVALID_IP"));
}

TEST_F(SearchFieldsTest, RepeatsNoBalloonForASubnetThatIsStillWrong) {
    Open();
    TypeSubnet(L"host", L"mask");
    Pause();
    Choose(IDC_MODIFY_SEARCH_LOCAL);
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_THAT(balloons, ElementsAre(L"MSG_INVALID_IP", L"MSG_INVALID_SUBNET"));
}

}  // namespace
