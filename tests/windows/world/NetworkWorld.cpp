#include "tests/windows/world/NetworkWorld.h"

#include "CommonLib/Files.h"
#include "settings/TagDocument.h"
#include "tests/fakes/TextLines.h"
#include "tests/windows/world/ThreadWatch.h"

namespace {

std::wstring Beside(const std::wstring& name) {
    return GetExeDirectory() + L"\\" + name;
}

void CopyLibrary(const std::wstring& name, const std::wstring& build) {
    DeleteFileW(Beside(name).c_str());
    if (build.empty()) return;
    const std::wstring fakes = GetExeDirectory() + L"\\..\\..\\..\\..\\fakes\\";
    EXPECT_TRUE(CopyFileTo(Beside(name), fakes + build + L"\\" + name));
}

}  // namespace

void NotingPage::SetDevices(std::list<DiscoveredDevice> devices) {
    deliveringThread = GetCurrentThreadId();
    std::vector<std::wstring> addresses;
    for (const DiscoveredDevice& device : devices) addresses.push_back(device.address);
    deliveries.push_back(addresses);
    delivered = std::move(devices);
}

NetworkWorld::NetworkWorld() {
    RemoveFiles();
    UseLibraries(L"complete", L"complete");
}

NetworkWorld::~NetworkWorld() {
    service.reset();
    RemoveFiles();
}

void NetworkWorld::RemoveFiles() {
    SetEnvironmentVariableW(L"SCRIPTED_NETWORK_RUN", nullptr);
    for (const wchar_t* const name : {L"Network.script", L"Network.record", L"Sondrix.dll", L"Quelmar.dll"}) {
        DeleteFileW(Beside(name).c_str());
    }
}

void NetworkWorld::UseLibraries(const std::wstring& sondrix, const std::wstring& quelmar) {
    CopyLibrary(L"Sondrix.dll", sondrix);
    CopyLibrary(L"Quelmar.dll", quelmar);
}

void NetworkWorld::Script(const std::vector<std::wstring>& fields) const {
    EXPECT_TRUE(AppendText(Beside(L"Network.script"), JoinFields(fields)));
}

void NetworkWorld::AddDevice(const std::wstring& address, const std::wstring& moreTags) const {
    Script({L"document", TagDocument::MakeElement(L"IPADDRESS", address) + moreTags});
}

void NetworkWorld::Start(IDiscoveryDialog* pageOfService) {
    service = std::make_unique<DiscoveryService>(pageOfService, Settings(), DriverRecords(), controller);
}

DWORD NetworkWorld::Run() const {
    const ThreadWatch threads;
    EXPECT_EQ(service->DoRun(), 0u);
    const std::vector<DWORD> codes = ThreadWatch::WaitForAll();
    EXPECT_EQ(codes.size(), 1u);
    return codes.empty() ? STILL_ACTIVE : codes.front();
}

std::vector<LibraryCall> NetworkWorld::Calls() {
    return ReadCalls(Beside(L"Network.record"));
}

std::vector<std::wstring> NetworkWorld::CallNames() const {
    std::vector<std::wstring> names;
    for (const LibraryCall& call : Calls()) names.push_back(call.name);
    return names;
}
