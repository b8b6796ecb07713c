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

std::string_view NameOf(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

const std::vector<const Rule*>& AllRules() {
    using namespace rules;
    static const std::vector<const Rule*> all = {
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
        &msiNone,
        &productNameMissing,
        &productNameShared,
        &productCodeShared,
        &upgradeCodeMissing,
        &upgradeRowMissing,
        &upgradePropertyNotSecure,
        &productVersion,
        &securePropertyMissing,
        &installSize,
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
        &programMissing,
        &pictureMissing,
        &pictureUnreadable,
        &pictureSize,
        &helpUnreadable,
        &licenceMissing,
        &licenceSeveral,
        &licenceBytes,
        &licenceWithoutLanguage,
        &fileNamesClash,
    };
    return all;
}

const Rule* FindRule(std::string_view id) {
    const auto& all = AllRules();
    const auto found = std::ranges::find(all, id, &Rule::id);
    return found == all.end() ? nullptr : *found;
}

}  // namespace packagecheck
