// Which driver and which text go with a device.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "settings/TextKeys.h"

// Both compute on their arguments alone and may run on any thread.

// Returns the driver that the table names for a device: free text of entries device text, ":", driver, ";".
// Nothing where the text or a ":" after it does not occur.
// By design: the device's text is looked for anywhere in the table, so that it also finds a longer one that
// holds it.
std::optional<std::wstring> OverridingDriver(std::wstring_view table, std::wstring_view deviceText);

// Returns the key of the text that says what will be installed for the selected device.
TextId SelectionTextKey(bool isMultiFunction, bool hasFax);
