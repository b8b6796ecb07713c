#include "app/Preparation.h"

#include "settings/TagNames.h"

void TakePredefinedPrinters(InstallSettings& settings) {
    settings.SetBool(Tag::INSTALL_FROM_CONFIG, true);
    settings.SetDevices(settings.GetAllValues(Tag::DEVICE));
}

void TakePrinterOfCommandLine(const NetworkAddress& printer, const ChoiceTargets& targets) {
    if (targets.settings.GetBool(Tag::HIDE_DISCOVERY) || printer.address.empty()) return;
    ApplyChoice(ChooseAddress(printer), targets);
}

bool LacksPrinter(const InstallSettings& settings, const NetworkAddress& printer) {
    return !settings.GetBool(Tag::HIDE_DISCOVERY) && settings.GetBool(Tag::SILENT_INSTALL) &&
           printer.address.empty();
}
