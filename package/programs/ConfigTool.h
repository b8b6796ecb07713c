// Ids of the configuration tool's window.
#pragma once

#define IDD_PROFILE 100
#define IDC_PROFILE_NAME 101
#define IDC_TWO_SIDED 102
#define IDC_SAVE_TONER 103
#define IDC_SHADES_OF_GREY 104
