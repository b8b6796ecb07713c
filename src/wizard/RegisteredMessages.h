// The window messages by which worker threads reach pages. They are registered before the program starts.
#pragma once

#include <windows.h>

// The discovered devices are in the shared list; the page redraws from it.
extern const UINT ZVUPDATEDISCOVERYLIST;
// Discovery has found nothing.
extern const UINT ZVNOPRINTERFOUND;
// lParam is a ProgressUpdate that the receiver owns.
extern const UINT MYUPDATEPROGRESS;
// The run is being cancelled; the status line says so.
extern const UINT MYUPDATECANCELTEXT;
