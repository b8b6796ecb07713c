// Lets threads do to what they share what the wizard's threads do. ThreadSanitizer reports a data race and
// makes the program fail; an object that loses something fails it too.

#include <atomic>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "CommonLib/Singleton.h"
#include "catalogue/AppCatalogue.h"
#include "catalogue/PackageFilters.h"
#include "discovery/DiscoveredDevices.h"
#include "settings/InstallSettings.h"
#include "settings/TagNames.h"

namespace {

constexpr int rounds = 200;

std::atomic<bool> allHold = true;

void Expect(bool holds, const char* what) {
    if (holds) return;
    std::printf("failed: %s\n", what);
    allHold = false;
}

// Runs each piece of work over and over on a thread of its own.
void RunTogether(const std::vector<std::function<void(int round)>>& pieces) {
    std::vector<std::thread> threads;
    for (const auto& piece : pieces) {
        threads.emplace_back([&piece] {
            for (int round = 0; round < rounds; ++round) piece(round);
        });
    }
    for (std::thread& thread : threads) thread.join();
}

void ShareTheSettings() {
    InstallSettings settings;
    settings.SetDevices({L"<A>1</A>"});
    RunTogether({
        [&](int round) { settings.SetString(Tag::INSTALL_STATUS, std::to_wstring(round)); },
        [&](int) {
            settings.SetBools({{Tag::USB, true}, {Tag::NIMBOJET, false}});
        },
        [&](int) { settings.SetDeviceValue(L"PORT_TYPE", L"USB"); },
        [&](int) { settings.AppendStartApp(L"x"); },
        [&](int) { static_cast<void>(settings.StripMarker().size() + settings.GetDevices().size()); },
    });
    Expect(settings.GetString(Tag::INSTALL_STATUS) == std::to_wstring(rounds - 1), "the last status counts");
    Expect(settings.GetBool(Tag::USB), "the flag is set");
    Expect(settings.GetStartApp().size() == rounds, "nothing that was appended is lost");
}

void ShareTheDevices() {
    DiscoveredDevices devices;
    RunTogether({
        [&](int) {
            devices.Assign({{.series = L"S"}, {.series = L"T"}});
        },
        [&](int) { devices.Assign({}); },
        [&](int) { static_cast<void>(devices.LastOfSeries(L"T")); },
        [&](int) { Expect(devices.All().size() % 2 == 0, "a delivery is seen whole"); },
    });
}

void ShareTheApplications() {
    AppCatalogue applications;
    for (const wchar_t* const path : {L"a", L"b"}) {
        MSI_APP record;
        record.msiPath = path;
        applications.Append(record);
    }
    RunTogether({
        [&](int) { applications.Update([](MSI_APP& record) { record.isSelected = !record.isSelected; }); },
        [&](int) {
            const std::size_t count = applications.Select(PackageFilter::selected).size();
            Expect(count == 0 || count == 2, "a change is seen whole");
        },
        [&](int) {
            MSI_APP outcome;
            outcome.msiPath = L"b";
            outcome.isInstalled = true;
            applications.RecordOutcome(outcome);
        },
    });
    Expect(applications.Select(L"<ISINSTALLED>true</ISINSTALLED>").size() == 1, "the outcome is kept");
}

void ShareTheFirstUse() {
    for (int round = 0; round < rounds; ++round) {
        Singleton<std::wstring> text;
        std::wstring* first = nullptr;
        std::wstring* second = nullptr;
        std::thread other([&] { second = &text.Get(); });
        first = &text.Get();
        other.join();
        Expect(first == second, "there is one object");
        text.Destroy();
    }
}

}  // namespace

int main() {
    ShareTheSettings();
    ShareTheDevices();
    ShareTheApplications();
    ShareTheFirstUse();
    std::puts(allHold ? "threads: passed" : "threads: FAILED");
    return allHold ? 0 : 1;
}
