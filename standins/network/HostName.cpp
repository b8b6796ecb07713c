#include "standins/network/HostName.h"

#include <algorithm>
#include <array>
#include <memory>
#include <mutex>

#include "standins/network/Sockets.h"

namespace discovery {

namespace {

// What the asking thread shares with the one that waits, which may be gone before the answer is there.
struct Question {
    std::wstring name;
    KernelHandle answered{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    std::mutex lock;
    std::vector<NetworkAddress> addresses;
};

std::vector<NetworkAddress> AskSystem(const std::wstring& name) {
    const SocketLibrary library;
    ADDRINFOW wanted{};
    wanted.ai_socktype = SOCK_DGRAM;
    ADDRINFOW* first = nullptr;
    std::vector<NetworkAddress> addresses;
    if (GetAddrInfoW(name.c_str(), nullptr, &wanted, &first) != 0) return addresses;
    for (const ADDRINFOW* each = first; each != nullptr; each = each->ai_next) {
        const NetworkAddress address = AddressOf(each->ai_addr);
        const bool isKnown = std::ranges::find(addresses, address) != addresses.end();
        if (address.IsHost() && !isKnown) addresses.push_back(address);
    }
    FreeAddrInfoW(first);
    return addresses;
}

void Answer(void* parameter) noexcept {
    try {
        const std::unique_ptr<std::shared_ptr<Question>> owner(
            static_cast<std::shared_ptr<Question>*>(parameter));
        Question& question = **owner;
        std::vector<NetworkAddress> addresses = AskSystem(question.name);
        const std::lock_guard guard(question.lock);
        question.addresses = std::move(addresses);
        SetEvent(question.answered.get());
    } catch (...) {
        // Without memory there is no answer; the one who waits has a limit of its own.
        return;
    }
}

DWORD WINAPI AnswerThread(void* parameter) {
    Answer(parameter);
    HMODULE self = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&AnswerThread), &self);
    FreeLibraryAndExitThread(self, 0);
}

// Starts the thread, which holds this library once for itself.
bool StartAsking(const std::shared_ptr<Question>& question) {
    HMODULE self = nullptr;
    if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCWSTR>(&AnswerThread),
                           &self) == FALSE) {
        return false;
    }
    auto parameter = std::make_unique<std::shared_ptr<Question>>(question);
    const KernelHandle thread(CreateThread(nullptr, 0, &AnswerThread, parameter.get(), 0, nullptr));
    if (!thread) {
        FreeLibrary(self);
        return false;
    }
    // The thread deletes it.
    static_cast<void>(parameter.release());
    return true;
}

}  // namespace

std::vector<NetworkAddress> ResolveHostName(const std::wstring& name, HANDLE cancelled, DWORD patience) {
    const auto question = std::make_shared<Question>();
    question->name = name;
    if (!StartAsking(question)) return {};
    const std::array<HANDLE, 2> events{cancelled, question->answered.get()};
    WaitForMultipleObjects(events.size(), events.data(), FALSE, patience);
    const std::lock_guard guard(question->lock);
    return question->addresses;
}

}  // namespace discovery
