// The dialog of the tests.
#pragma once

#define IDD_TEST 9001
#define IDC_TEST_EDIT 9002
#define IDC_TEST_BUTTON 9003
