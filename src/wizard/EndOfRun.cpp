#include "wizard/EndOfRun.h"

#include "settings/TagNames.h"
#include "wizard/Controller.h"

void LeaveForTheEnd(const PageContext& context) {
    context.settings.SetBool(Tag::OPTIONAL_INSTALL, false);
    context.controller.UpdateHideFlags();
    if (context.settings.GetBool(Tag::REBOOT)) {
        context.controller.Next({});
    } else {
        context.controller.Finish(false);
    }
}
