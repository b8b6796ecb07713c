// Lets a kit be unpacked where Windows Installer has no administrative installation of its own: an action of
// that name runs the package's own sequence for it.
#include <windows.h>

#include <msi.h>
#include <msiquery.h>

extern "C" __declspec(dllexport) UINT __stdcall UnpackKit(MSIHANDLE install) {
    return MsiSequenceW(install, L"AdminExecuteSequence", 0);
}
