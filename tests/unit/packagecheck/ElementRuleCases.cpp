#include "tests/unit/packagecheck/RuleCases.h"

std::vector<RuleCase> ElementRuleCases() {
    return {
        {"element-over-lines",
         [](MemoryTree& tree) { tree.AddUserElement("<DEVICE>\n<DRIVER_ID>HVMONO</DRIVER_ID>\n</DEVICE>"); },
         [](MemoryTree& tree) { tree.AddUserElement("<DEVICE><DRIVER_ID>HVMONO</DRIVER_ID></DEVICE>"); }},
        {"element-over-lines", [](MemoryTree& tree) { tree.AddUserElement("<UPD>\n1</UPD>"); },
         [](MemoryTree& tree) { tree.AddSetting("<UPD>\n1</UPD>"); }},
        {"element-empty", [](MemoryTree& tree) { tree.AddUserElement("<UPD></UPD>"); },
         [](MemoryTree& tree) { tree.AddSetting("<UPD></UPD>"); }},
        {"element-attributes", [](MemoryTree& tree) { tree.AddUserElement("<UPD kind=\"x\">1</UPD>"); },
         [](MemoryTree& tree) { tree.AddSetting("<UPD kind=\"x\">1</UPD>"); }},
        {"element-unclosed", [](MemoryTree& tree) { tree.AddSetting("<UPD>1"); },
         [](MemoryTree& tree) { tree.AddSetting("<UPD>1</UPD>"); }},
        {"element-unclosed", [](MemoryTree& tree) { tree.AddSetting("<UPD>1</Upd>"); },
         [](MemoryTree& tree) { tree.AddSetting("<UPD>1</UPD><UPD/>"); }},
        {"element-closed-first", [](MemoryTree& tree) { tree.AddSetting("</UPD><UPD>1"); },
         [](MemoryTree& tree) { tree.AddSetting("</PORT_TYPE><UPD>1</UPD>"); }},
        {"element-repeated", [](MemoryTree& tree) { tree.AddSetting("<UPD>1</UPD><UPD>2</UPD>"); },
         [](MemoryTree& tree) {
             tree.AddSetting("<MODEL_NAME>A:b</MODEL_NAME><MODEL_NAME>B:c</MODEL_NAME>");
         }},
        {"element-repeated", [](MemoryTree& tree) { tree.AddUserElement("<UPD>1</UPD>\n<UPD>2</UPD>"); },
         [](MemoryTree& tree) {
             tree.AddUserElement(
                 "<DEVICE><PORT_NAME>a</PORT_NAME></DEVICE>\n<DEVICE><PORT_NAME>b</PORT_NAME></DEVICE>");
         }},
        {"element-in-comment", [](MemoryTree& tree) { tree.AddSetting("<!-- <UPD>1</UPD> -->"); },
         [](MemoryTree& tree) { tree.AddSetting("<!-- UPD -->\n<UPD>1</UPD>"); }},
        {"tag-unknown", [](MemoryTree& tree) { tree.AddSetting("<HIDE_STRAT>true</HIDE_STRAT>"); },
         [](MemoryTree& tree) { tree.AddSetting("<MY_FRAME>\n<HIDE_START>true</HIDE_START>\n</MY_FRAME>"); }},
        {"tag-of-run", [](MemoryTree& tree) { tree.AddSetting("<TARGET_DIR>C:\\Here</TARGET_DIR>"); },
         [](MemoryTree& tree) { tree.AddSetting("<STARTAPP>a.exe;</STARTAPP>"); }},
        {"tag-of-device", [](MemoryTree& tree) { tree.AddSetting("<DRIVER_ID>HVMONO</DRIVER_ID>"); },
         [](MemoryTree& tree) { tree.AddUserElement("<DEVICE><DRIVER_ID>HVMONO</DRIVER_ID></DEVICE>"); }},
        {"value-edges", [](MemoryTree& tree) { tree.AddSetting("<UPD> 1</UPD>"); },
         [](MemoryTree& tree) { tree.AddSetting("<PRODUCT_NAME>Loom 2</PRODUCT_NAME>"); }},
        {"value-edges", [](MemoryTree& tree) { tree.AddSetting("<UPD>1\n</UPD>"); },
         [](MemoryTree& tree) { tree.AddSetting("<MY_FRAME> <UPD>1</UPD> </MY_FRAME>"); }},
    };
}
