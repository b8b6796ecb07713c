// A test of runs over packages that exist in a test only, without a page.
#pragma once

#include <string>
#include <vector>

#include "install/InstallService.h"
#include "tests/windows/world/CatalogueWorld.h"
#include "tests/windows/world/ThreadWatch.h"

// The run is silent, so that the walk does not go on after it.
class InstallWorld : public CatalogueWorld {
protected:
    InstallWorld();

    // Adds an application package of that name.
    FakePackage& Add(const std::wstring& name) { return AddPackage(L"Applications", name + L".msi"); }
    // Adds a package that comes along with an application.
    FakePackage& AddDependent(const std::wstring& parent, const std::wstring& name);

    // Builds the catalogues, runs the service to its end and gives what DoRun gave.
    std::uint32_t Run();
    // The lines of the status document: "NAME=STATUS".
    static std::vector<std::wstring> StatusLines();

    // Whether the run has called for its own cancel.
    bool HasStopped() const;

    InstallService service{nullptr, &msi, context, AppRecords(), DriverRecords()};
    std::vector<DWORD> threadExitCodes;
};
