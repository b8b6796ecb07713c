// Prints what a run of the package in this folder tree would do: lie it beside Kestrune.exe and start it
// there.

#include <optional>
#include <string>
#include <vector>

#include "app/Collaborators.h"
#include "framework/SystemLibrary.h"
#include "tools/OfferedPackages.h"
#include "tools/PlanLines.h"
#include "tools/PrintLine.h"

int wmain() {
    RestrictLibrarySearch();
    const std::optional<OfferedPackages> offered = ReadOfferedPackages(TheCollaborators());
    if (!offered) {
        PrintLine(L"There is no defaultInstallSettings.xml one folder above this program.");
        return 1;
    }
    std::vector<std::wstring> lines;
    AppendPlan(offered->applications, L"", lines);
    AppendPlan(offered->drivers, L"", lines);
    for (const std::wstring& line : lines) PrintLine(line);
    return 0;
}
