#include "tests/unit/packagecheck/RuleCases.h"

namespace {

// A device on which no rule has anything to say, with further elements.
std::string Device(const std::string& name, const std::string& elements = {}) {
    return "<DEVICE><DRIVER_ID>HVMONO</DRIVER_ID><PRINTER_NAME>" + name + "</PRINTER_NAME>" + elements +
           "</DEVICE>";
}

std::string NetworkHost(const std::string& host) {
    return "<PORT_TYPE>Standard TCP/IP Port</PORT_TYPE><HOST_NAME>" + host + "</HOST_NAME>";
}

}  // namespace

std::vector<RuleCase> DeviceRuleCases() {
    return {
        {"device-none", [](MemoryTree& tree) { tree.AddUserElement("<UPD>1</UPD>"); },
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk")); }},
        {"device-tag-unknown",
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk", "<PORTNAME>a</PORTNAME>")); },
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk", "<LOCATION>a</LOCATION>")); }},
        {"device-tag-repeated",
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk", "<PRINTER_NAME>b</PRINTER_NAME>")); },
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk") + "\n" + Device("Studio")); }},
        {"device-without-driver",
         [](MemoryTree& tree) { tree.AddUserElement("<DEVICE><PRINTER_NAME>a</PRINTER_NAME></DEVICE>"); },
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk")); }},
        {"device-driver-unknown",
         [](MemoryTree& tree) { tree.AddUserElement("<DEVICE><DRIVER_ID>hvmono</DRIVER_ID></DEVICE>"); },
         [](MemoryTree& tree) {
             tree.packages["Drivers/x64/Fax.msi"] = CleanMsi(L"Fax");
             tree.packages["Drivers/x64/Fax.msi"].properties[L"DRIVERID"] = L"Fax";
             tree.AddUserElement("<DEVICE><DRIVER_ID>Fax</DRIVER_ID></DEVICE>");
         }},
        {"device-address-preset",
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk", "<IPADDRESS>10.0.0.1</IPADDRESS>")); },
         [](MemoryTree& tree) {
             tree.AddSetting("<HIDE_DISCOVERY>true</HIDE_DISCOVERY>");
             tree.AddUserElement(Device("Desk", "<IPADDRESS>10.0.0.1</IPADDRESS>"));
         }},
        {"device-address-preset",
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk", "<IPADDRESS>10.0.0.1</IPADDRESS>")); },
         [](MemoryTree& tree) {
             tree.AddSetting("<IPADDRESS>10.0.0.2</IPADDRESS>");
             tree.AddUserElement(Device("Desk", "<IPADDRESS>10.0.0.1</IPADDRESS>"));
         }},
        {"device-port-type",
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk", "<PORT_TYPE>TCP/IP</PORT_TYPE>")); },
         [](MemoryTree& tree) {
             tree.AddUserElement(Device("Desk", "<PORT_TYPE>Halvenny Nimbo Jet</PORT_TYPE>"));
         }},
        {"device-port-missing",
         [](MemoryTree& tree) {
             tree.AddUserElement(Device("Desk", "<PORT_TYPE>Standard TCP/IP Port</PORT_TYPE>"));
         },
         [](MemoryTree& tree) {
             tree.AddUserElement(
                 Device("Desk", "<PORT_TYPE>Standard TCP/IP Port</PORT_TYPE><HOST_NAME>a</HOST_NAME>"));
         }},
        {"device-host", [](MemoryTree& tree) { tree.AddUserElement(Device("Desk", NetworkHost("a b"))); },
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk", NetworkHost("2001:db8::7"))); }},
        {"device-host",
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk", NetworkHost(std::string(49, 'a')))); },
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk", NetworkHost(std::string(48, 'a')))); }},
        {"device-name", [](MemoryTree& tree) { tree.AddUserElement(Device("Front, desk")); },
         [](MemoryTree& tree) { tree.AddUserElement(Device("Front; desk")); }},
        {"device-name", [](MemoryTree& tree) { tree.AddUserElement(Device(std::string(221, 'a'))); },
         [](MemoryTree& tree) { tree.AddUserElement(Device(std::string(220, 'a'))); }},
        {"device-name-missing",
         [](MemoryTree& tree) { tree.AddUserElement("<DEVICE><DRIVER_ID>HVMONO</DRIVER_ID></DEVICE>"); },
         [](MemoryTree& tree) {
             tree.AddUserElement(
                 "<DEVICE><DRIVER_ID>HVMONO</DRIVER_ID><DETECT_PRINTER>True</DETECT_PRINTER></DEVICE>");
         }},
        {"device-name-repeated",
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk") + "\n" + Device("DESK")); },
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk") + "\n" + Device("Desk 2")); }},
        {"device-detect",
         [](MemoryTree& tree) { tree.AddUserElement(Device("Desk", "<DETECT_PRINTER>1</DETECT_PRINTER>")); },
         [](MemoryTree& tree) {
             tree.AddUserElement(Device("Desk", "<DETECT_PRINTER>TRUE</DETECT_PRINTER>"));
         }},
        {"device-config-missing",
         [](MemoryTree& tree) {
             tree.AddUserElement(Device("Desk", "<DRIVERCONFIG_PATH>a.xdc</DRIVERCONFIG_PATH>"));
         },
         [](MemoryTree& tree) {
             tree.files["Setup/sub/A.XDC"] = "";
             tree.AddUserElement(Device("Desk", "<DRIVERCONFIG_PATH>sub\\a.xdc</DRIVERCONFIG_PATH>"));
         }},
        {"device-config-extension",
         [](MemoryTree& tree) {
             tree.AddUserElement(Device("Desk", "<DRIVERCONFIG_PATH>a</DRIVERCONFIG_PATH>"));
         },
         [](MemoryTree& tree) {
             tree.AddUserElement(Device("Desk", "<DRIVERCONFIG_PATH>a.b</DRIVERCONFIG_PATH>"));
         }},
        {"device-tool-missing",
         [](MemoryTree& tree) {
             tree.AddUserElement(Device("Desk", "<CONFIG_EXE_PATH>Tool</CONFIG_EXE_PATH>"));
         },
         [](MemoryTree& tree) {
             tree.packages["Setup/MyTool2.msi"] = CleanMsi(L"Kit");
             tree.AddUserElement(Device("Desk", "<CONFIG_EXE_PATH>Tool</CONFIG_EXE_PATH>"));
         }},
    };
}
