#include "tests/unit/packagecheck/RuleCases.h"

namespace {

std::wstring& DriverProperty(MemoryTree& tree, const std::wstring& name) {
    return tree.packages[driverPath].properties[name];
}

// A second printer driver, which both lists accept.
void AddSecondDriver(MemoryTree& tree, const std::wstring& id) {
    packagecheck::MsiContents driver = CleanMsi(L"Second");
    driver.properties[L"DRIVERID"] = id;
    driver.properties[L"DRIVERNAME"] = L"Second";
    tree.packages["Drivers/x64/Second.msi"] = driver;
    for (const std::string list : {"WIN8", "WINXP"}) {
        tree.Replace(defaultsPath, "<" + list + "_DRVTYPES>",
                     "<" + list + "_DRVTYPES>" + std::string(id.begin(), id.end()) + ";");
    }
}

void AddTool(MemoryTree& tree, const std::string& name) {
    tree.packages["Install/" + name + ".msi"] = CleanMsi(L"Kit");
}

}  // namespace

std::vector<RuleCase> DriverRuleCases() {
    return {
        {"driver-id-missing",
         [](MemoryTree& tree) { tree.packages["Drivers/x64/Other.msi"] = CleanMsi(L"Other"); },
         [](MemoryTree& tree) { tree.packages["Applications/Other.msi"] = CleanMsi(L"Other"); }},
        {"driver-id-case", [](MemoryTree& tree) { DriverProperty(tree, L"DRIVERID") = L"FAX"; },
         [](MemoryTree& tree) { DriverProperty(tree, L"DRIVERID") = L"Fax"; }},
        {"driver-too-new", [](MemoryTree& tree) { AddSecondDriver(tree, L"HVMONOV4"); },
         [](MemoryTree& tree) {
             AddSecondDriver(tree, L"HVMONOV4");
             tree.Replace(defaultsPath, "<WINXP_DRVTYPES>HVMONOV4;", "<WINXP_DRVTYPES>");
         }},
        {"driver-too-new", [](MemoryTree& tree) { AddSecondDriver(tree, L"V4"); },
         [](MemoryTree& tree) { AddSecondDriver(tree, L"HVMONOv4"); }},
        {"driver-name-missing", [](MemoryTree& tree) { DriverProperty(tree, L"DRIVERNAME").clear(); },
         [](MemoryTree& tree) {
             DriverProperty(tree, L"DRIVERNAME").clear();
             DriverProperty(tree, L"DRIVERID") = L"SCAN";
         }},
        {"driver-id-shared", [](MemoryTree& tree) { AddSecondDriver(tree, L"HVMONO"); },
         [](MemoryTree& tree) { AddSecondDriver(tree, L"HVCOLOR"); }},
        {"driver-not-accepted", [](MemoryTree& tree) { DriverProperty(tree, L"DRIVERID") = L"hvmono"; },
         [](MemoryTree& tree) { tree.Replace(defaultsPath, "<WIN8_DRVTYPES>HVMONO", "<WIN8_DRVTYPES>"); }},
        {"driver-type-unused",
         [](MemoryTree& tree) {
             tree.Replace(defaultsPath, "<WIN8_DRVTYPES>HVMONO", "<WIN8_DRVTYPES>HVMONO; HVMONO");
         },
         [](MemoryTree& tree) {
             tree.Replace(defaultsPath, "<WIN8_DRVTYPES>HVMONO", "<WIN8_DRVTYPES>HVMONO;");
         }},
        {"default-driver-unknown",
         [](MemoryTree& tree) {
             tree.Replace(defaultsPath, "<COLOR_DEFAULT>HVMONO", "<COLOR_DEFAULT>HVCOLOR");
         },
         [](MemoryTree& tree) {
             AddSecondDriver(tree, L"HVCOLOR");
             tree.Replace(defaultsPath, "<COLOR_DEFAULT>HVMONO", "<COLOR_DEFAULT>HVCOLOR");
         }},
        {"default-driver-missing",
         [](MemoryTree& tree) {
             tree.Replace(defaultsPath, "<WIN8_NO_COMM_DEFAULT>HVMONO", "<WIN8_NO_COMM_DEFAULT>");
         },
         [](MemoryTree& tree) {
             tree.Replace(defaultsPath, "<WINXP_DRVTYPES>HVMONO", "<WINXP_DRVTYPES>");
             for (const char* tag : {"<MONO_DEFAULT>", "<COLOR_DEFAULT>", "<NO_COMM_DEFAULT>"}) {
                 tree.Replace(defaultsPath, tag + std::string("HVMONO"), tag);
             }
         }},
        {"override-form",
         [](MemoryTree& tree) {
             tree.AddSetting("<MODEL_DEFAULT_OVERRIDE>Loom 200 HVMONO;</MODEL_DEFAULT_OVERRIDE>");
         },
         [](MemoryTree& tree) {
             tree.AddSetting("<MODEL_DEFAULT_OVERRIDE>Loom 200:HVMONO</MODEL_DEFAULT_OVERRIDE>");
         }},
        {"override-form",
         [](MemoryTree& tree) {
             tree.AddSetting("<MODEL_DEFAULT_OVERRIDE>:HVMONO;</MODEL_DEFAULT_OVERRIDE>");
         },
         [](MemoryTree& tree) {
             tree.AddSetting("<MODEL_DEFAULT_OVERRIDE>L:HVMONO;;</MODEL_DEFAULT_OVERRIDE>");
         }},
        {"override-form",
         [](MemoryTree& tree) {
             tree.AddSetting("<MODEL_DEFAULT_OVERRIDE>Loom:200:HVMONO;</MODEL_DEFAULT_OVERRIDE>");
         },
         [](MemoryTree& tree) {
             tree.AddSetting("<MODEL_DEFAULT_OVERRIDE>Loom:HVMONO;200:HVMONO;</MODEL_DEFAULT_OVERRIDE>");
         }},
        {"override-driver-unknown",
         [](MemoryTree& tree) {
             tree.AddSetting("<MODEL_DEFAULT_OVERRIDE>Loom:HVMONI;</MODEL_DEFAULT_OVERRIDE>");
         },
         [](MemoryTree& tree) {
             tree.AddSetting("<MODEL_DEFAULT_OVERRIDE>Loom:HVMONO;</MODEL_DEFAULT_OVERRIDE>");
         }},
        {"override-shadowed",
         [](MemoryTree& tree) {
             AddSecondDriver(tree, L"HVCOLOR");
             tree.AddSetting(
                 "<MODEL_DEFAULT_OVERRIDE>Loom 20:HVMONO;Loom 2:HVCOLOR;</MODEL_DEFAULT_OVERRIDE>");
         },
         [](MemoryTree& tree) {
             AddSecondDriver(tree, L"HVCOLOR");
             tree.AddSetting(
                 "<MODEL_DEFAULT_OVERRIDE>Loom 2:HVCOLOR;Loom 20:HVMONO;</MODEL_DEFAULT_OVERRIDE>");
         }},
        {"override-long",
         [](MemoryTree& tree) {
             std::string table;
             for (int i = 1000; i < 1501; ++i) table += "Loom" + std::to_string(i) + ":HVMONO;";
             tree.AddSetting("<MODEL_DEFAULT_OVERRIDE>" + table + "</MODEL_DEFAULT_OVERRIDE>");
         },
         [](MemoryTree& tree) {
             std::string table;
             for (int i = 1000; i < 1400; ++i) table += "Loom" + std::to_string(i) + ":HVMONO;";
             tree.AddSetting("<MODEL_DEFAULT_OVERRIDE>" + table + "</MODEL_DEFAULT_OVERRIDE>");
         }},
        {"override-long",
         [](MemoryTree& tree) {
             tree.AddSetting("<MODEL_DEFAULT_OVERRIDE>" + std::string(100'001, 'x') +
                             "</MODEL_DEFAULT_OVERRIDE>");
         },
         [](MemoryTree& tree) {
             tree.AddSetting("<MODEL_DEFAULT_OVERRIDE>" + std::string(100'000, 'x') +
                             "</MODEL_DEFAULT_OVERRIDE>");
         }},
        {"ombrel-value", [](MemoryTree& tree) { DriverProperty(tree, L"ISOMBRELSUPPORTED") = L"true"; },
         [](MemoryTree& tree) { DriverProperty(tree, L"ISOMBRELSUPPORTED") = L"FALSE"; }},
        {"ombrel-without-tool",
         [](MemoryTree& tree) { DriverProperty(tree, L"ISOMBRELSUPPORTED") = L"TRUE"; },
         [](MemoryTree& tree) {
             DriverProperty(tree, L"ISOMBRELSUPPORTED") = L"TRUE";
             AddTool(tree, "DriverConfig");
         }},
        {"ombrel-without-tool",
         [](MemoryTree& tree) {
             DriverProperty(tree, L"ISOMBRELSUPPORTED") = L"TRUE";
             AddTool(tree, "Ardentis");
         },
         [](MemoryTree& tree) {
             DriverProperty(tree, L"ISOMBRELSUPPORTED") = L"TRUE";
             tree.packages["Common/x64/Kit.msi"] = CleanMsi(L"Kit");
             tree.packages["Common/x64/Kit.msi"].properties[L"APPTYPE"] = L"DRIVERCONFIG";
         }},
    };
}
