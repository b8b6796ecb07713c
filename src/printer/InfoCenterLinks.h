// The help link of the printer and its label.
#pragma once

#include <string>

#include "settings/InstallSettings.h"
#include "settings/Localizer.h"

// Both read INFOCENTER_LINK, MODEL_PRODUCT_CODE, OEM_NAME and PRINTER_NAME, and write INFOCENTER_SHORTCUT and
// EXACT_INFOCENTER_LINK.

// For the series that all devices of a predefined configuration share, or the general link.
void DeriveInfoCenterLinks(InstallSettings& settings, const Localizer& localizer);

// For the given printer; an empty model asks for the general link, an empty series for that of PRINTER_NAME.
void BuildInfoCenterLinks(InstallSettings& settings, const Localizer& localizer, const std::wstring& model,
                          const std::wstring& series);
