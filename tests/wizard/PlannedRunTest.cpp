// Plans against the silent and the shown runs that they are of, for packages that a seed makes up.

#include <algorithm>
#include <string_view>
#include <vector>

#include "CommonLib/Utf8.h"
#include "tests/wizard/GeneratedPackage.h"
#include "tests/wizard/NetworkPageTest.h"
#include "tests/wizard/ShownPages.h"

namespace {

class PlannedRunTest : public WizardTest, public testing::WithParamInterface<unsigned> {
protected:
    GeneratedPackage package{tree, GetParam()};
};

TEST_P(PlannedRunTest, InstallsInThatOrderWithThoseDocuments) {
    const bool takesAddress = package.Toss();
    package.AddPackages();
    package.SetSettings(Element(L"SILENT_INSTALL", L"true") +
                        (takesAddress ? std::wstring() : Element(L"HIDE_DISCOVERY", L"true")));
    if (takesAddress) package.options.printer = {.address = L"192.0.2.7", .portName = L"Desk"};
    Run(takesAddress ? L"-ip=192.0.2.7 -p=Desk" : L"");
    EXPECT_EQ(InstallationsOf(Calls(L"MsiInstallApp")), InstallationsOf(package.MakePlan().packages));
}

INSTANTIATE_TEST_SUITE_P(Seeds, PlannedRunTest, testing::Range(1U, 1U + SeedCount()));

// The pages come up while the first package waits, so that none is over before it is seen.
class PlannedWalkTest : public NetworkPageTest, public testing::WithParamInterface<unsigned> {
protected:
    void SetUp() override {
        NetworkPageTest::SetUp();
        AddFourDevices();
        tree.Add({.path = L"Applications\\!first.msi",
                  .keeps = true,
                  .install = {.steps = {{L"untilFile", Gate(L"go on")}}}});
        package.AddPackages();
        package.SetSettings(package.PageSettings());
    }

    bool WasShown(std::wstring_view title) const { return std::ranges::find(shown, title) != shown.end(); }

    // The second page of a kind is the one for the optional software.
    std::wstring_view TitleOf(const KnownPage& page) const {
        if (!WasShown(page.title)) return page.title;
        return page.title == L"Finish" ? L"Finish of the optional software"
                                       : L"Restart after the optional software";
    }

    // A run that has shown its last page waits for the packages as well.
    bool IsInstalling(const PageOnScreen& current) const {
        return !Installs().empty() &&
               (current.page != nullptr ||
                testing::Value(BasicLog(), HasRecord(L"", L"Installation is Finished")));
    }

    void Walk() {
        wizard.Start();
        HWND seen = nullptr;
        bool isOpen = false;
        WaitUntil(
            [&] {
                const PageOnScreen current = FindSettledPage(wizard);
                const bool isNew = current.page != nullptr && current.control != seen;
                if (isNew) shown.push_back(TitleOf(*current.page));
                if (isNew) seen = current.control;
                if (!isOpen && IsInstalling(current)) {
                    Open(Gate(L"go on"));
                    isOpen = true;
                } else if (isNew && (isOpen || IsBeforeRun(current.page->title))) {
                    LeaveByButton(wizard, *current.page);
                }
                return !wizard.IsRunning();
            },
            2 * patience);
        wizard.WaitForEnd();
    }

    // In UTF-8, as a failure prints them in letters.
    static std::vector<std::string> TitlesOf(const packagecheck::Plan& plan) {
        std::vector<std::string> titles;
        for (const packagecheck::PlannedPage& page : plan.pages) {
            if (page.state == packagecheck::PageState::Shown) titles.push_back(ToUtf8(page.title));
        }
        return titles;
    }

    std::vector<std::string> ShownTitles() const {
        std::vector<std::string> titles;
        for (const std::wstring_view title : shown) titles.push_back(ToUtf8(title));
        return titles;
    }

    GeneratedPackage package{tree, GetParam()};
    std::vector<std::wstring_view> shown;
};

TEST_P(PlannedWalkTest, ShowsThosePagesAndInstallsAsPlanned) {
    Walk();
    const packagecheck::Plan plan = package.MakePlan();
    EXPECT_EQ(ShownTitles(), TitlesOf(plan));
    // The choice of a device is the user's.
    if (!WasShown(L"Discovered printers")) {
        EXPECT_EQ(InstallationsOf(Calls(L"MsiInstallApp")), InstallationsOf(plan.packages));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, PlannedWalkTest, testing::Range(1U, 1U + SeedCount()));

}  // namespace
