// A walk that a test leads page by page: the ids of the pages' controls and what a page shows.
#pragma once

#include <string>

#include "WizardTest.h"

// The controls by which the tests know and lead the pages.
namespace Control {

// Next, Install, Agree or OK, whatever the page calls it, and Cancel or Disagree.
inline constexpr int next = 1;
inline constexpr int cancel = 2;
inline constexpr int help = 1057;
inline constexpr int welcomeText = 1004;
inline constexpr int welcomeHeader = 1082;
inline constexpr int informationLink = 1136;
inline constexpr int productLink = 1144;
inline constexpr int licence = 1024;
inline constexpr int manufacturers = 1069;
inline constexpr int reinstall = 1101;
inline constexpr int skip = 1102;
inline constexpr int network = 1145;
inline constexpr int usb = 1147;
inline constexpr int devices = 1014;
inline constexpr int usbRadio = 1016;
inline constexpr int nimbojetRadio = 1021;
inline constexpr int modifySearch = 1122;
inline constexpr int refresh = 1123;
inline constexpr int addPort = 1124;
inline constexpr int drivers = 1127;
inline constexpr int configureDriver = 1129;
inline constexpr int selectionText = 1130;
inline constexpr int localSearch = 1026;
inline constexpr int hostSearch = 1027;
inline constexpr int subnetSearch = 1028;
inline constexpr int searchHost = 1029;
inline constexpr int searchAddress = 1031;
inline constexpr int searchMask = 1033;
inline constexpr int portKinds = 1202;
inline constexpr int portList = 1203;
inline constexpr int portName = 1205;
inline constexpr int portAddress = 1207;
inline constexpr int sharePath = 1209;
inline constexpr int portDrivers = 1212;
inline constexpr int portBack = 1214;
inline constexpr int configPath = 1221;
inline constexpr int configNew = 1222;
inline constexpr int configLoad = 1223;
inline constexpr int configReset = 1224;
inline constexpr int statusLine = 1000;
inline constexpr int progressBar = 1001;
inline constexpr int finish = 1116;
inline constexpr int finishHeader = 1006;
inline constexpr int finishText = 1167;
inline constexpr int softwareList = 1169;
inline constexpr int statusList = 1078;
inline constexpr int errorLink = 1121;
inline constexpr int finishHelpLink = 1178;
inline constexpr int finishProductLink = 1179;
inline constexpr int restartNow = 1009;
inline constexpr int restartLater = 1010;
inline constexpr int restartText = 1011;
inline constexpr int webLink = 1100;

}  // namespace Control

class PageTest : public WizardTest {
protected:
    // Lays settings that lead to the page for which the further settings show the way, and hides the others.
    void UseSettings(const std::wstring& further);
    // Starts the program and waits until the page shows this control.
    HWND StartOn(int control);

    bool IsShown(int control) const { return wizard.FindControl(control) != nullptr; }
    bool IsEnabled(int control) const;
    std::wstring TextOf(int control) const;
    // Waits until the control is shown and enabled.
    bool WaitUntilEnabled(int control) const;
    // Waits until the question whether to cancel is on the screen and answers it.
    void AnswerCancel(int button) const;
    bool HasAskedToCancel() const;
    // Lays a picture of one colour into the package's pictures.
    void AddPicture(const std::wstring& name, COLORREF colour);
    // Waits until the screen shows the colour near the window's corner, or for so long.
    static bool HasColour(HWND window, COLORREF colour, std::chrono::milliseconds limit);
    // The same with a limit for what must come, and a word on what has come instead.
    static bool ShowsColour(HWND window, COLORREF colour);
    // Whether the program stays without a question for a moment.
    bool StaysQuiet() const;
};
