#include <algorithm>

#include "tools/PackageCheck/CatalogueRules.h"
#include "tools/PackageCheck/DependentRules.h"
#include "tools/PackageCheck/DeviceRules.h"
#include "tools/PackageCheck/DriverRules.h"
#include "tools/PackageCheck/ElementRules.h"
#include "tools/PackageCheck/FileRules.h"
#include "tools/PackageCheck/LanguageRules.h"
#include "tools/PackageCheck/SettingsRules.h"
#include "tools/PackageCheck/TextRules.h"

namespace packagecheck {

namespace {

using namespace rules;

constexpr const Rule* all[] = {
    // The form of text files.
    &fileUnreadable,
    &fileUtf16,
    &fileNotUtf8,
    &fileNull,
    &fileEndMark,
    &fileMarkTwice,
    &lineSplit,
    // The form of elements.
    &elementOverLines,
    &elementEmpty,
    &elementAttributes,
    &elementUnclosed,
    &elementCloseFirst,
    &elementRepeated,
    &elementInComment,
    &tagUnknown,
    &tagOfRun,
    &tagOfDevice,
    &valueEdges,
    // What the settings say.
    &settingsMissing,
    &vendorMissing,
    &vendorCharacters,
    &flagValue,
    &strictFlagValue,
    &tagWithoutEffect,
    &silentCannotBegin,
    &silentNeedsDotNet,
    &runWithoutQuestion,
    &runWithoutProgress,
    &runWithoutEnd,
    &modelForm,
    &modelRepeated,
    &modelBrand,
    &productCodeForm,
    &subnetForm,
    &kindOfPackage,
    &manufacturerForm,
    &manufacturerDefault,
    &linkScheme,
    &linkQuery,
    // Predefined printers.
    &deviceNone,
    &deviceTagUnknown,
    &deviceTagRepeated,
    &deviceWithoutDriver,
    &deviceDriverUnknown,
    &deviceAddressPreset,
    &devicePortType,
    &devicePortMissing,
    &deviceHost,
    &deviceName,
    &deviceNameMissing,
    &deviceNameRepeated,
    &deviceDetect,
    &deviceConfigMissing,
    &deviceConfigExtension,
    &deviceToolMissing,
    // Drivers.
    &driverIdMissing,
    &driverIdCase,
    &driverNameMissing,
    &driverTooNew,
    &driverIdShared,
    &driverNotAccepted,
    &driverTypeUnused,
    &defaultDriverUnknown,
    &defaultDriverMissing,
    &overrideForm,
    &overrideDriverUnknown,
    &overrideShadowed,
    &overrideLong,
    &ombrelValue,
    &ombrelWithoutTool,
    // Languages.
    &languageEnglishMissing,
    &languageNameUnknown,
    &languageId,
    &readingOrder,
    &codePage,
    &textMissing,
    &textEmpty,
    &textUnknown,
    &textRepeated,
    &textUnclosed,
    &accessKeyTwice,
    &accessKeyBroken,
    &accessKeyShared,
    &textEntity,
    &textTagUnknown,
    &textTagUnclosed,
    &textEndless,
    &textArgumentMissing,
    &textArgumentUnknown,
    // Packages.
    &msiUnreadable,
    &msiMisplaced,
    &msiFolder,
    &msiNone,
    &summaryIncomplete,
    &summaryVersion,
    &productNameMissing,
    &productNameShared,
    &productCodeShared,
    &upgradeCodeMissing,
    &upgradeCodeShared,
    &upgradeRowMissing,
    &upgradePropertyNotSecure,
    &productVersion,
    &securePropertyMissing,
    &installSize,
    &installSizeMissing,
    &supportedOsIgnored,
    &supportedOsSingle,
    &supportedOsUnknown,
    &startAppUnclosed,
    &startAppNoFile,
    &deviceType,
    &appType,
    &flagProperty,
    &propertyMisspelt,
    &propertyLanguage,
    &valueHoldsTag,
    &toolNotUnpackable,
    &toolMisplaced,
    &dotNetMissing,
    &dotNetSeveral,
    // What packages take along.
    &dependentMissing,
    &dependentByAccident,
    &dependentIgnored,
    &dependentCycle,
    &dependentUnused,
    // Other files.
    &libraryMissing,
    &searchLibraryMissing,
    &libraryUnreadable,
    &libraryExports,
    &libraryOfWindows,
    &oemBytesLine,
    &oemBytesNumber,
    &communityText,
    &programMissing,
    &pictureMissing,
    &pictureUnreadable,
    &pictureSize,
    &helpUnreadable,
    &helpMissing,
    &licenceMissing,
    &licenceSeveral,
    &licenceBytes,
    &licenceSplit,
    &licenceWithoutLanguage,
    &fileNamesClash,
};

}  // namespace

std::string_view NameOf(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

std::span<const Rule* const> AllRules() {
    return all;
}

const Rule* FindRule(std::string_view id) {
    const auto* const found = std::ranges::find(all, id, &Rule::id);
    return found == std::ranges::end(all) ? nullptr : *found;
}

}  // namespace packagecheck
