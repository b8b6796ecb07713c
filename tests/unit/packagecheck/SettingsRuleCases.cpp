#include "tests/unit/packagecheck/RuleCases.h"

std::vector<RuleCase> SettingsRuleCases() {
    return {
        {"settings-missing", [](MemoryTree& tree) { tree.files.erase(defaultsPath); },
         [](MemoryTree& tree) {
             tree.files["SETUP/DEFAULTINSTALLSETTINGS.XML"] = tree.files[defaultsPath];
             tree.files.erase(defaultsPath);
         }},
        {"vendor-missing", [](MemoryTree& tree) { tree.Replace(defaultsPath, "<OEM>Halvenny</OEM>", ""); },
         [](MemoryTree& tree) { tree.Replace(defaultsPath, "<OEM>Halvenny</OEM>", "<OEM>H</OEM>"); }},
        {"vendor-characters",
         [](MemoryTree& tree) { tree.Replace(defaultsPath, "<OEM>Halvenny<", "<OEM>Halvenny <"); },
         [](MemoryTree& tree) { tree.Replace(defaultsPath, "<OEM>Halvenny<", "<OEM>Hal venny<"); }},
        {"vendor-characters",
         [](MemoryTree& tree) { tree.Replace(defaultsPath, "<OEM>Halvenny", "<OEM>A/S"); },
         [](MemoryTree& tree) { tree.Replace(defaultsPath, "<OEM>Halvenny", "<OEM>A. S"); }},
        {"vendor-characters",
         [](MemoryTree& tree) { tree.Replace(defaultsPath, "<OEM>Halvenny", "<OEM>Halvenny Inc."); },
         [](MemoryTree& tree) { tree.Replace(defaultsPath, "<OEM>Halvenny", "<OEM>Halvenny Inc.s"); }},
        {"vendor-characters",
         [](MemoryTree& tree) { tree.AddSetting("<PRODUCT_NAME>\"Loom\"</PRODUCT_NAME>"); },
         [](MemoryTree& tree) { tree.AddSetting("<PRODUCT_NAME>'Loom'</PRODUCT_NAME>"); }},
        {"flag-value", [](MemoryTree& tree) { tree.AddSetting("<HIDE_START>yes</HIDE_START>"); },
         [](MemoryTree& tree) {
             tree.AddSetting("<HIDE_START>True</HIDE_START><HIDE_EULA>FALSE</HIDE_EULA>");
         }},
        {"strict-flag-value",
         [](MemoryTree& tree) { tree.AddSetting("<AMAZON_SUPPORTED>true</AMAZON_SUPPORTED>"); },
         [](MemoryTree& tree) { tree.AddSetting("<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>"); }},
        {"tag-without-effect", [](MemoryTree& tree) { tree.AddSetting("<WEBDRIVERVER>1.0</WEBDRIVERVER>"); },
         [](MemoryTree& tree) { tree.AddSetting("<UPD>2</UPD><WEBDRIVERVER>1.0</WEBDRIVERVER>"); }},
        {"tag-without-effect",
         [](MemoryTree& tree) {
             tree.AddSetting(
                 "<IPADDRESS>10.0.0.1</IPADDRESS><SUBNETADDRESS>10.0.0.0:255.0.0.0</SUBNETADDRESS>");
         },
         [](MemoryTree& tree) { tree.AddSetting("<SUBNETADDRESS>10.0.0.0:255.0.0.0</SUBNETADDRESS>"); }},
        {"tag-without-effect",
         [](MemoryTree& tree) { tree.AddSetting("<HIDE_CONNECTIVITY>false</HIDE_CONNECTIVITY>"); },
         [](MemoryTree& tree) {
             tree.AddSetting(
                 "<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED><HIDE_CONNECTIVITY>false</HIDE_CONNECTIVITY>");
         }},
        {"silent-cannot-begin",
         [](MemoryTree& tree) { tree.AddSetting("<SILENT_INSTALL>true</SILENT_INSTALL>"); },
         [](MemoryTree& tree) {
             tree.AddSetting("<SILENT_INSTALL>true</SILENT_INSTALL><HIDE_DISCOVERY>true</HIDE_DISCOVERY>");
         }},
        {"silent-needs-dotnet",
         [](MemoryTree& tree) {
             tree.AddSetting("<SILENT_INSTALL>true</SILENT_INSTALL>");
             tree.packages[applicationPath].properties[L"SecureCustomProperties"] += L";NETFRAMEWORK40";
         },
         [](MemoryTree& tree) {
             tree.packages[applicationPath].properties[L"SecureCustomProperties"] += L";NETFRAMEWORK40";
         }},
        {"run-without-question",
         [](MemoryTree& tree) {
             tree.AddSetting(
                 "<HIDE_START>1</HIDE_START><HIDE_EULA>1</HIDE_EULA><HIDE_DISCOVERY>1</HIDE_DISCOVERY>");
         },
         [](MemoryTree& tree) { tree.AddSetting("<HIDE_START>1</HIDE_START><HIDE_EULA>1</HIDE_EULA>"); }},
        {"run-without-progress",
         [](MemoryTree& tree) { tree.AddSetting("<HIDE_PROGRESS>true</HIDE_PROGRESS>"); },
         [](MemoryTree& tree) {
             tree.AddSetting("<SILENT_INSTALL>true</SILENT_INSTALL><HIDE_PROGRESS>true</HIDE_PROGRESS>");
         }},
        {"run-without-end", [](MemoryTree& tree) { tree.AddSetting("<HIDE_FINAL>true</HIDE_FINAL>"); },
         [](MemoryTree& tree) { tree.AddSetting("<HIDE_FINAL>false</HIDE_FINAL>"); }},
        {"model-form", [](MemoryTree& tree) { tree.AddSetting("<MODEL_NAME>Loom</MODEL_NAME>"); },
         [](MemoryTree& tree) { tree.AddSetting("<MODEL_NAME>A:</MODEL_NAME>"); }},
        {"model-repeated", [](MemoryTree& tree) { tree.AddSetting("<MODEL_NAME>Halvenny:X</MODEL_NAME>"); },
         [](MemoryTree& tree) { tree.AddSetting("<MODEL_NAME_FAX>Halvenny:X</MODEL_NAME_FAX>"); }},
        {"model-brand",
         [](MemoryTree& tree) { tree.Replace(defaultsPath, "Halvenny:Halvenny Loom", "halvenny:Loom"); },
         [](MemoryTree& tree) {
             tree.Replace(defaultsPath, "Halvenny:Halvenny Loom", "Norrlund:Loom");
             tree.AddSetting("<MANUFACTURERS>Halvenny:1|Norrlund:2</MANUFACTURERS>");
         }},
        {"product-code-form",
         [](MemoryTree& tree) {
             tree.AddSetting("<MODEL_PRODUCT_CODE>Loom 200:Halvenny</MODEL_PRODUCT_CODE>");
         },
         [](MemoryTree& tree) {
             tree.AddSetting("<MODEL_PRODUCT_CODE>Loom 200:Halvenny 2</MODEL_PRODUCT_CODE>");
         }},
        {"subnet-form",
         [](MemoryTree& tree) { tree.AddSetting("<SUBNETADDRESS>10.2.0.0/16</SUBNETADDRESS>"); },
         [](MemoryTree& tree) { tree.AddSetting("<SUBNETADDRESS>10.2.0.0:255.255.0.0</SUBNETADDRESS>"); }},
        {"upd-value", [](MemoryTree& tree) { tree.AddSetting("<UPD>3</UPD>"); },
         [](MemoryTree& tree) { tree.AddSetting("<UPD>0</UPD>"); }},
        {"manufacturer-form",
         [](MemoryTree& tree) { tree.AddSetting("<MANUFACTURERS>A:1|B</MANUFACTURERS>"); },
         [](MemoryTree& tree) { tree.AddSetting("<MANUFACTURERS>A:1|B:2||</MANUFACTURERS>"); }},
        {"manufacturer-default",
         [](MemoryTree& tree) {
             tree.AddSetting(
                 "<MANUFACTURERS>A:1|B:2</MANUFACTURERS><DEFAULT_MANUFACTURER>b</DEFAULT_MANUFACTURER>");
         },
         [](MemoryTree& tree) {
             tree.AddSetting(
                 "<MANUFACTURERS>A:1|B:2</MANUFACTURERS><DEFAULT_MANUFACTURER>B</DEFAULT_MANUFACTURER>");
         }},
        {"tag-without-effect",
         [](MemoryTree& tree) {
             tree.AddSetting("<HIDE_DISCOVERY>true</HIDE_DISCOVERY><USB_SUPPORTED>1</USB_SUPPORTED>");
         },
         [](MemoryTree& tree) { tree.AddSetting("<USB_SUPPORTED>1</USB_SUPPORTED>"); }},
        {"link-scheme",
         [](MemoryTree& tree) { tree.AddSetting("<REGISTRATION_LINK>calc.exe</REGISTRATION_LINK>"); },
         [](MemoryTree& tree) {
             tree.AddSetting("<REGISTRATION_LINK>HTTPS://a.example</REGISTRATION_LINK>");
         }},
        {"link-scheme",
         [](MemoryTree& tree) { tree.AddSetting("<REGISTRATION_LINK>https://</REGISTRATION_LINK>"); },
         [](MemoryTree& tree) { tree.AddSetting("<REGISTRATION_LINK>http://a</REGISTRATION_LINK>"); }},
        {"link-query",
         [](MemoryTree& tree) {
             tree.AddSetting("<INFOCENTER_LINK>https://a.example?x=1</INFOCENTER_LINK>");
         },
         [](MemoryTree& tree) { tree.AddSetting("<INFOCENTER_LINK>https://a.example/x</INFOCENTER_LINK>"); }},
    };
}
