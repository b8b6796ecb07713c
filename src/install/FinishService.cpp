#include "install/FinishService.h"

#include <windows.h>

#include <string>

#include "CommonLib/Application.h"
#include "CommonLib/Exception.h"
#include "CommonLib/Files.h"
#include "CommonLib/TextUtilities.h"
#include "settings/TagNames.h"

namespace {

// No path of the system is longer.
constexpr std::size_t longestSearchedPath = 32767;

// The file that the path names, as it stands or with the extension that may be left out; empty if none.
std::wstring ProgramFile(const std::wstring& path) {
    if (IsFile(path)) return path;
    const bool hasExtension = FileNameOf(path).find(L'.') != std::wstring_view::npos;
    const std::wstring program = path + L".exe";
    return !hasExtension && IsFile(program) ? program : std::wstring();
}

// An entry is a program of the folder with its arguments. Its longest part, up to a blank or to its end, that
// names a file is the program; what stands for one that is not there is the entry as a whole.
void Describe(Application& application, const std::wstring& folder, const std::wstring& entry) {
    for (std::size_t end = entry.size(); end != 0 && end != std::wstring::npos;
         end = entry.find_last_of(L' ', end - 1)) {
        if (entry[end - 1] == L' ' || folder.size() + end > longestSearchedPath) continue;
        const std::wstring path = folder + L"\\" + entry.substr(0, end);
        application.program = ProgramFile(path);
        if (application.program.empty()) continue;
        application.commandLine = L"\"" + path + L"\"" + entry.substr(end);
        return;
    }
    application.program = folder + L"\\" + entry;
    application.commandLine = application.program;
}

}  // namespace

std::uint32_t FinishService::DoRun() {
    const std::wstring folder = settings.GetString(Tag::TARGET_DIR);
    try {
        for (const std::wstring& entry : SplitClosed(settings.GetStartApp(), L';')) {
            Application application;
            Describe(application, folder, entry);
            application.creationFlags = NORMAL_PRIORITY_CLASS;
            application.launch();
        }
    } catch (const Exception& exception) {
        return static_cast<std::uint32_t>(exception.getCode());
    }
    return 0;
}
