#include "framework/AfxBeginThread.h"

#include <windows.h>

#include <process.h>

#include <memory>
#include <utility>

#include "framework/CWinApp.h"
#include "framework/Handles.h"

namespace {

using Procedure = std::function<unsigned()>;

unsigned __stdcall RunThread(void* argument) {
    const std::unique_ptr<Procedure> procedure(static_cast<Procedure*>(argument));
    try {
        return (*procedure)();
    } catch (...) {
        CWinApp::ReportUnhandledException(L"worker thread");
        return 0;
    }
}

}  // namespace

bool AfxBeginThread(std::function<unsigned()> procedure) {
    auto argument = std::make_unique<Procedure>(std::move(procedure));
    const KernelHandle thread(
        reinterpret_cast<HANDLE>(_beginthreadex(nullptr, 0, &RunThread, argument.get(), 0, nullptr)));
    if (!thread) return false;
    // The thread has taken the procedure over.
    static_cast<void>(argument.release());
    return true;
}
