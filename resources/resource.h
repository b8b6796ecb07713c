// The ids of the program's resources: the one place that holds their numbers. The resource script, the code,
// the tests and the scripts name them, and IDOK and IDCANCEL are a dialog's main button and its Cancel. The
// numbers are fixed.
#pragma once

#define IDI_KESTRUNE 128
// The font of the pages, a TrueType file.
#define IDR_FONT 1174

// What more than one dialog has.
#define IDC_HELP_BUTTON 1057
#define IDC_FINISH 1116
#define IDC_WEB_LINK 1100
#define IDC_OUTCOME_TITLE 1006
#define IDC_STATUS_LIST 1078

// The main window, which holds the place of the pages and the logo.
#define IDD_MAIN 102
#define IDC_MAIN_PAGE_PLACE 1002
#define IDC_MAIN_LOGO 1072

// Start: what this is, where to read more.
#define IDD_START 130
#define IDC_START_TITLE 1082
#define IDC_START_TEXT 1004
#define IDC_START_INFORMATION_LINK 1136
#define IDC_START_REGISTRATION_LINK 1144

// Licence: the text, and the hint that it must be read to its end.
#define IDD_LICENCE 137
#define IDC_LICENCE_TITLE 1025
#define IDC_LICENCE_TEXT 1024
#define IDC_LICENCE_SCROLL_HINT 1073

// Manufacturer.
#define IDD_MANUFACTURER 144
#define IDC_MANUFACTURER_TITLE 1068
#define IDC_MANUFACTURER_LABEL 1128
#define IDC_MANUFACTURER_LIST 1069

// The way past an installation that is up to date.
#define IDD_BYPASS 5
#define IDC_BYPASS_TITLE 1103
#define IDC_BYPASS_TEXT 1104
#define IDC_BYPASS_REINSTALL 1101
#define IDC_BYPASS_SKIP 1102

// Connectivity: two large buttons with a caption and a text each.
#define IDD_CONNECTIVITY 154
#define IDC_CONNECTIVITY_TITLE 1144
#define IDC_CONNECTIVITY_TEXT 1160
#define IDC_CONNECTIVITY_NETWORK 1145
#define IDC_CONNECTIVITY_NETWORK_CAPTION 1170
#define IDC_CONNECTIVITY_NETWORK_TEXT 1172
#define IDC_CONNECTIVITY_USB 1147
#define IDC_CONNECTIVITY_USB_CAPTION 1171
#define IDC_CONNECTIVITY_USB_TEXT 1173

// Discovered printers. The template has no control of the id of the radio button that leads back to the list,
// nor of the second id of a refresh button.
#define IDD_DISCOVERY 136
#define IDC_DISCOVERY_TITLE 1010
#define IDC_DISCOVERY_LIST_LABEL 1013
#define IDC_DISCOVERY_LIST 1014
#define IDC_DISCOVERY_BACK_TO_LIST 1015
#define IDC_DISCOVERY_USB 1016
#define IDC_DISCOVERY_SECOND_REFRESH 1019
#define IDC_DISCOVERY_NIMBOJET 1021
#define IDC_DISCOVERY_MODIFY_SEARCH 1122
#define IDC_DISCOVERY_REFRESH 1123
#define IDC_DISCOVERY_ADD_PORT 1124
#define IDC_DISCOVERY_DRIVER_FRAME 1125
#define IDC_DISCOVERY_DRIVER_LABEL 1126
#define IDC_DISCOVERY_DRIVER_LIST 1127
#define IDC_DISCOVERY_CONFIGURE 1129
#define IDC_DISCOVERY_SELECTION_TEXT 1130
#define IDC_DISCOVERY_FIRST_NOTE 1131
#define IDC_DISCOVERY_SECOND_NOTE 1132
#define IDC_DISCOVERY_STATE 1134

// Where to search, over the page of the discovered printers.
#define IDD_MODIFY_SEARCH 138
#define IDC_MODIFY_SEARCH_LOCAL 1026
#define IDC_MODIFY_SEARCH_BY_HOST 1027
#define IDC_MODIFY_SEARCH_BY_SUBNET 1028
#define IDC_MODIFY_SEARCH_HOST 1029
#define IDC_MODIFY_SEARCH_ADDRESS_LABEL 1030
#define IDC_MODIFY_SEARCH_ADDRESS 1031
#define IDC_MODIFY_SEARCH_MASK_LABEL 1032
#define IDC_MODIFY_SEARCH_MASK 1033
#define IDC_MODIFY_SEARCH_HOST_LABEL 1216

// A port by hand.
#define IDD_ADD_PORT 139
#define IDC_ADD_PORT_TITLE 1200
#define IDC_ADD_PORT_HEADING 1201
#define IDC_ADD_PORT_KIND 1202
#define IDC_ADD_PORT_LIST 1203
#define IDC_ADD_PORT_NAME_LABEL 1204
#define IDC_ADD_PORT_NAME 1205
#define IDC_ADD_PORT_ADDRESS_LABEL 1206
#define IDC_ADD_PORT_ADDRESS 1207
#define IDC_ADD_PORT_PATH_LABEL 1208
#define IDC_ADD_PORT_PATH 1209
#define IDC_ADD_PORT_DRIVER_FRAME 1210
#define IDC_ADD_PORT_DRIVER_LABEL 1211
#define IDC_ADD_PORT_DRIVER_LIST 1212
#define IDC_ADD_PORT_CONFIGURE 1213
#define IDC_ADD_PORT_BACK 1214
#define IDC_ADD_PORT_LIST_LABEL 1215

// Progress.
#define IDD_PROGRESS 129
#define IDC_PROGRESS_STATUS_LINE 1000
#define IDC_PROGRESS_BAR 1001

// How it went: a picture, texts and links. The list decides the status and is not shown.
#define IDD_FINISH 131
#define IDC_FINISH_PICTURE_PLACE 1175
#define IDC_FINISH_SECOND_TEXT 1167
#define IDC_FINISH_OPTIONAL_TEXT 1111
#define IDC_FINISH_HIDDEN_TEXT 1143
#define IDC_FINISH_SOFTWARE_LIST_LINK 1169
#define IDC_FINISH_INFORMATION_LINK 1178
#define IDC_FINISH_REGISTRATION_LINK 1179
#define IDC_FINISH_ERROR_LINK 1121

// Restart now or later.
#define IDD_REBOOT 134
#define IDC_REBOOT_TITLE 1133
#define IDC_REBOOT_TEXT 1011
#define IDC_REBOOT_NOW 1009
#define IDC_REBOOT_LATER 1010

// A driver's configuration file.
#define IDD_DRIVER_CONFIG 152
#define IDC_DRIVER_CONFIG_TITLE 1220
#define IDC_DRIVER_CONFIG_PATH 1221
#define IDC_DRIVER_CONFIG_NEW 1222
#define IDC_DRIVER_CONFIG_LOAD 1223
#define IDC_DRIVER_CONFIG_RESET 1224
#define IDC_DRIVER_CONFIG_APPLY_FUTURE 1225

// Files in use, to be closed by the user.
#define IDD_FILES_IN_USE 142
#define IDC_FILES_IN_USE_TITLE 1090
#define IDC_FILES_IN_USE_TEXT 1065
#define IDC_FILES_IN_USE_APPLICATIONS 1093
#define IDC_FILES_IN_USE_RETRY 1066
#define IDC_FILES_IN_USE_IGNORE 1067

// Files in use, which the system can close by itself.
#define IDD_CLOSABLE_FILES 141
#define IDC_CLOSABLE_FILES_TEXT 1061
#define IDC_CLOSABLE_FILES_APPLICATIONS 1096
#define IDC_CLOSABLE_FILES_RESTART 1063
#define IDC_CLOSABLE_FILES_DO_NOT_CLOSE 1064

// The software list over the Finish page.
#define IDD_SOFTWARE_LIST 1176

// The topics of the help, by the numbers in the help file's map.
#define HIDD_DEFAULT 1629
#define HIDD_MANUFACTURER 1625
#define HIDD_CONNECTIVITY 1579
#define HIDD_DISCOVERY 1566
#define HIDD_MODIFY_SEARCH 1569
#define HIDD_ADD_PORT 1624
#define HIDD_FINISH 1542
#define HIDD_REBOOT 1621
#define HIDD_DRIVER_CONFIG 1606
