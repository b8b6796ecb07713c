#include "tests/unit/packagecheck/RuleCases.h"

namespace {

packagecheck::MsiContents& Application(MemoryTree& tree) {
    return tree.packages[applicationPath];
}

std::wstring& Value(MemoryTree& tree, const std::wstring& name) {
    return Application(tree).properties[name];
}

// Puts the application into the folder Optional as well, as another product.
void AddOptional(MemoryTree& tree, const std::wstring& systems) {
    tree.packages["Optional/x64/More.msi"] = CleanMsi(L"More");
    tree.packages["Optional/x64/More.msi"].properties[L"SUPPORTEDOS"] = systems;
}

void AddTool(MemoryTree& tree, const std::wstring& folder, const std::wstring& program) {
    packagecheck::MsiContents tool = CleanMsi(L"Kit");
    tool.properties[L"APPTYPE"] = L"V4DRIVERCONFIG";
    tool.upgrades.clear();
    tool.files = {{.folder = folder, .name = program}};
    tree.packages["Common/x64/Kit.msi"] = tool;
}

}  // namespace

std::vector<RuleCase> CatalogueRuleCases() {
    return {
        {"msi-unreadable", [](MemoryTree& tree) { tree.unreadable = {applicationPath}; },
         [](MemoryTree& tree) { tree.unreadable = {"DotNet/setup.msi"}; }},
        {"msi-misplaced", [](MemoryTree& tree) { tree.packages["Drivers/Mono2.msi"] = CleanMsi(L"Mono2"); },
         [](MemoryTree& tree) {
             tree.packages["Applications/Mono2.msi"] = CleanMsi(L"Mono2");
             tree.packages["DotNet/setup.msi"] = CleanMsi(L"Setup");
         }},
        {"msi-none", [](MemoryTree& tree) { tree.packages.clear(); },
         [](MemoryTree& tree) { tree.packages.erase(driverPath); }},
        {"product-name-missing", [](MemoryTree& tree) { Value(tree, L"ProductName").clear(); },
         [](MemoryTree& tree) { Value(tree, L"ProductName") = L"M"; }},
        {"product-name-shared", [](MemoryTree& tree) { Value(tree, L"ProductName") = L"Halvenny Mono"; },
         [](MemoryTree& tree) { Value(tree, L"ProductName") = L"Halvenny mono"; }},
        {"product-name-shared",
         [](MemoryTree& tree) {
             Value(tree, L"ProductName.1031") = L"Treiber";
             tree.packages[driverPath].properties[L"ProductName.1031"] = L"Treiber";
         },
         [](MemoryTree& tree) {
             Value(tree, L"ProductName.1031") = L"Treiber";
             tree.packages[driverPath].properties[L"ProductName.1036"] = L"Treiber";
         }},
        {"upgrade-code-shared", [](MemoryTree& tree) { Value(tree, L"UpgradeCode") = L"{mono-FAMILY}"; },
         [](MemoryTree& tree) {
             tree.packages["Applications/Monitor.msi"] = tree.packages[applicationPath];
         }},
        {"product-code-shared", [](MemoryTree& tree) { Value(tree, L"ProductCode") = L"{Mono-CODE}"; },
         [](MemoryTree& tree) { tree.packages["Install/Monitor.msi"] = CleanMsi(L"Monitor"); }},
        {"upgrade-code-missing", [](MemoryTree& tree) { Application(tree).properties.erase(L"UpgradeCode"); },
         [](MemoryTree& tree) { Value(tree, L"UpgradeCode") = L"{monitor-family}"; }},
        {"upgrade-row-missing", [](MemoryTree& tree) { Application(tree).upgrades.front().attributes = 2; },
         [](MemoryTree& tree) { Application(tree).upgrades.front().attributes = 1; }},
        {"upgrade-property-not-secure",
         [](MemoryTree& tree) { Value(tree, L"SecureCustomProperties") = L"TARGET_DIR;OLDER_FOUND_TOO"; },
         [](MemoryTree& tree) { Value(tree, L"SecureCustomProperties") = L"OLDER_FOUND;TARGET_DIR"; }},
        {"product-version", [](MemoryTree& tree) { Value(tree, L"ProductVersion") = L"1.2.3.4"; },
         [](MemoryTree& tree) { Value(tree, L"ProductVersion") = L"255.255.65535"; }},
        {"product-version", [](MemoryTree& tree) { Value(tree, L"ProductVersion") = L"256.0"; },
         [](MemoryTree& tree) { Value(tree, L"ProductVersion") = L"1.2"; }},
        {"product-version", [](MemoryTree& tree) { Value(tree, L"ProductVersion") = L"1..2"; },
         [](MemoryTree& tree) { Value(tree, L"ProductVersion") = L"1.0.2"; }},
        {"product-version", [](MemoryTree& tree) { Value(tree, L"ProductVersion") = L"1.2b"; },
         [](MemoryTree& tree) { Value(tree, L"ProductVersion") = L"01.2"; }},
        {"secure-property-missing",
         [](MemoryTree& tree) { Application(tree).usedProperties.insert(L"PRINTER_INFO"); },
         [](MemoryTree& tree) {
             Application(tree).usedProperties.insert(L"PRINTER_INFO");
             Value(tree, L"SecureCustomProperties") += L";PRINTER_INFO";
         }},
        {"install-size", [](MemoryTree& tree) { Value(tree, L"INSTALLSIZE") = L"MB 12"; },
         [](MemoryTree& tree) { Value(tree, L"INSTALLSIZE") = L"12.5MB"; }},
        {"install-size", [](MemoryTree& tree) { Value(tree, L"INSTALLSIZE") = L"2 GB"; },
         [](MemoryTree& tree) { Value(tree, L"INSTALLSIZE") = L"2048"; }},
        {"install-size", [](MemoryTree& tree) { Value(tree, L"INSTALLSIZE") = L"12582912"; },
         [](MemoryTree& tree) { Value(tree, L"INSTALLSIZE") = L"100000 MB"; }},
        {"install-size", [](MemoryTree& tree) { Value(tree, L"INSTALLSIZE") = L"0 MB"; },
         [](MemoryTree& tree) { Value(tree, L"INSTALLSIZE") = L"0.5MB"; }},
        {"install-size-missing", [](MemoryTree& tree) { Application(tree).properties.erase(L"INSTALLSIZE"); },
         [](MemoryTree& tree) { Value(tree, L"INSTALLSIZE") = L"1"; }},
        {"summary-incomplete", [](MemoryTree& tree) { Application(tree).summary.platform.clear(); },
         [](MemoryTree& tree) { Application(tree).summary.platform = L"Intel;0"; }},
        {"summary-incomplete", [](MemoryTree& tree) { Application(tree).summary.installerVersion = 0; },
         [](MemoryTree& tree) { Application(tree).summary.installerVersion = 1; }},
        {"summary-incomplete", [](MemoryTree& tree) { Application(tree).summary.packageCode.clear(); },
         [](MemoryTree& tree) { tree.packages["Install/Kit.msi"] = CleanMsi(L"Kit"); }},
        {"summary-version", [](MemoryTree& tree) { Application(tree).summary.installerVersion = 501; },
         [](MemoryTree& tree) { Application(tree).summary.installerVersion = 500; }},
        {"msi-folder", [](MemoryTree& tree) { tree.files["applications/x64/Old.MSI/readme.txt"] = "old"; },
         [](MemoryTree& tree) { tree.files["Applications/x64/old/Old.msi/readme.txt"] = "old"; }},
        {"supported-os-ignored",
         [](MemoryTree& tree) { Value(tree, L"SUPPORTEDOS") = L"WINDOWS_8;WINDOWS_BLUE"; },
         [](MemoryTree& tree) { Value(tree, L"SUPPORTEDOS") = L"WINDOWS_BLUE;WINDOWS_8;WINDOWS_7"; }},
        {"supported-os-ignored",
         [](MemoryTree& tree) { tree.packages[driverPath].properties[L"SUPPORTEDOS"] = L"WINDOWS_7"; },
         [](MemoryTree& tree) { AddOptional(tree, L"WINDOWS_7;"); }},
        {"supported-os-single", [](MemoryTree& tree) { AddOptional(tree, L"WINDOWS_7"); },
         [](MemoryTree& tree) { AddOptional(tree, L"WINDOWS_7;"); }},
        {"supported-os-unknown", [](MemoryTree& tree) { AddOptional(tree, L"WINDOWS_8; WINDOWS_BLUE"); },
         [](MemoryTree& tree) { AddOptional(tree, L"WINDOWS_8;WINDOWS_BLUE"); }},
        {"startapp-unclosed", [](MemoryTree& tree) { Value(tree, L"STARTAPP") = L"Monitor\\Monitor.exe"; },
         [](MemoryTree& tree) { Value(tree, L"STARTAPP") = L"Monitor\\Monitor.exe;"; }},
        {"startapp-no-file", [](MemoryTree& tree) { Value(tree, L"STARTAPP") = L"Monitor\\Moniter.exe;"; },
         [](MemoryTree& tree) { Value(tree, L"STARTAPP") = L"Monitor\\MONITOR -a \"b c\";Mono\\Mono.exe;"; }},
        {"startapp-no-file", [](MemoryTree& tree) { Value(tree, L"STARTAPP") = L"Moniter.exe  -a ;"; },
         [](MemoryTree& tree) { Value(tree, L"STARTAPP") = L"Monitor\\Monitor.exe  -a;Mono\\Mono.exe ;"; }},
        {"startapp-no-file", [](MemoryTree& tree) { Value(tree, L"STARTAPP") = L" Moniter.exe;"; },
         [](MemoryTree& tree) {
             Value(tree, L"STARTAPP") = L"Monitor.exe " + std::wstring(2'000 - 12, L'x') + L";";
         }},
        {"startapp-no-file",
         [](MemoryTree& tree) {
             Value(tree, L"STARTAPP") = L"Monitor.exe " + std::wstring(2'001 - 12, L'x') + L";";
         },
         [](MemoryTree& tree) { Value(tree, L"STARTAPP") = L"Monitor.exe;"; }},
        {"startapp-no-file", [](MemoryTree& tree) { Value(tree, L"STARTAPP") = L"Moniter -a;"; },
         [](MemoryTree& tree) { Value(tree, L"STARTAPP") = L"Monitor -a;"; }},
        {"device-type", [](MemoryTree& tree) { Value(tree, L"DEVICETYPE") = L"Scanner"; },
         [](MemoryTree& tree) { Value(tree, L"DEVICETYPE") = L"SCANNER"; }},
        {"app-type", [](MemoryTree& tree) { Value(tree, L"APPTYPE") = L"NimboJet"; },
         [](MemoryTree& tree) { Value(tree, L"APPTYPE") = L"NIMBOJET"; }},
        {"flag-property", [](MemoryTree& tree) { Value(tree, L"DISCOVERY") = L"TRUE"; },
         [](MemoryTree& tree) { Value(tree, L"DISCOVERY") = L"yes"; }},
        {"flag-property", [](MemoryTree& tree) { Value(tree, L"FORCEREINSTALL") = L"YES"; },
         [](MemoryTree& tree) { Value(tree, L"FORCEREINSTALL") = L"No"; }},
        {"property-misspelt", [](MemoryTree& tree) { Value(tree, L"SUPORTEDOS") = L"a"; },
         [](MemoryTree& tree) { Value(tree, L"SUPPORTEDOSES") = L"a"; }},
        {"property-misspelt", [](MemoryTree& tree) { Value(tree, L"DeviceType") = L"a"; },
         [](MemoryTree& tree) { Value(tree, L"DEVICETYPE") = L"FAX"; }},
        {"property-language", [](MemoryTree& tree) { Value(tree, L"ProductName.1031") = L"a"; },
         [](MemoryTree& tree) { Value(tree, L"ProductName.1033") = L"a"; }},
        {"value-holds-tag", [](MemoryTree& tree) { Value(tree, L"MSIDESCRIPTION") = L"a</MSIDESCRIPTION>"; },
         [](MemoryTree& tree) { Value(tree, L"MSIDESCRIPTION") = L"a <b> c"; }},
        {"value-holds-tag", [](MemoryTree& tree) { Value(tree, L"ProductName") = L"a <STARTAPP> b"; },
         [](MemoryTree& tree) { Value(tree, L"ProductName") = L"a STARTAPP b"; }},
        {"tool-not-unpackable",
         [](MemoryTree& tree) {
             AddTool(tree, L"Halvenny\\ArdentisKit", L"Ardentis.exe");
             tree.packages["Common/x64/Kit.msi"].adminActions = {L"CostFinalize"};
         },
         [](MemoryTree& tree) { AddTool(tree, L"Halvenny\\ArdentisKit", L"Ardentis.exe"); }},
        {"tool-misplaced", [](MemoryTree& tree) { AddTool(tree, L"ArdentisKit", L"Ardentis.exe"); },
         [](MemoryTree& tree) { AddTool(tree, L"Printer\\ArdentisKit", L"Ardentis.exe"); }},
        {"dotnet-missing",
         [](MemoryTree& tree) {
             Value(tree, L"SecureCustomProperties") += L";NETFRAMEWORK40";
             tree.files["DotNet/readme.txt"] = "";
         },
         [](MemoryTree& tree) {
             Value(tree, L"SecureCustomProperties") += L";NETFRAMEWORK40";
             tree.files["dotnet/Setup.EXE"] = "";
         }},
        {"dotnet-several",
         [](MemoryTree& tree) {
             tree.files["DotNet/a.exe"] = "";
             tree.files["DotNet/b.msi"] = "";
         },
         [](MemoryTree& tree) {
             tree.files["DotNet/a.exe"] = "";
             tree.files["DotNet/b.txt"] = "";
         }},
    };
}
