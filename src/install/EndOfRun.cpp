#include "install/EndOfRun.h"

#include "settings/InstallSettings.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"

void LeaveForTheEnd() {
    InstallSettings& settings = InstallSettings::GetInstance();
    Controller& controller = Controller::GetInstance();
    settings.SetBool(Tag::OPTIONAL_INSTALL, false);
    controller.UpdateHideFlags();
    if (settings.GetBool(Tag::REBOOT)) {
        controller.Next({});
    } else {
        controller.Finish(false);
    }
}
