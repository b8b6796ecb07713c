// Stands in for the programs of a product: it notes that it was started, and with what, in a file that all
// users share.
#include "package/programs/SampleFile.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    wchar_t shared[MAX_PATH] = {};
    if (GetEnvironmentVariableW(L"ALLUSERSPROFILE", shared, MAX_PATH) == 0) return 1;
    const std::wstring folder = std::wstring(shared) + L"\\Halvenny";
    CreateDirectoryW(folder.c_str(), nullptr);
    return WriteSampleFile(folder + L"\\Started.log", std::wstring(GetCommandLineW()) + L"\r\n", true) ? 0
                                                                                                       : 1;
}
