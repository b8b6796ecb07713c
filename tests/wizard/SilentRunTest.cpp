// A run without pages, from the start of the program to its end.

#include "WizardTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SilentRunTest : public WizardTest {};

TEST_F(SilentRunTest, InstallsTheApplicationsInTheOrderOfTheScan) {
    tree.Add({.path = L"Applications\\x64\\c.msi"});
    tree.Add({.path = L"Applications\\x86_x64\\b.msi"});
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi", L"b.msi", L"c.msi"));
    EXPECT_THAT(Removals(), IsEmpty());
    EXPECT_EQ(wizard.ExitCode(), 0U);
}

TEST_F(SilentRunTest, TellsItsStoryInTheBasicLog) {
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    EXPECT_THAT(BasicMessages(L""), ElementsAre(L"Default Configuration File Values", testing::_,
                                                L"Starting Installer", L"Installing Applications",
                                                L"End of silent mode install", L"Installation is Finished"));
    EXPECT_THAT(BasicMessages(L"ERROR"),
                ElementsAre(L"Exception in CKestruneApp::InitInstance error code = 2"));
}

}  // namespace
