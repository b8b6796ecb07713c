#include "install/CommandDocument.h"

#include "settings/TagDocument.h"
#include "settings/TagNames.h"

CommandValues MakeCommandValues(const MSI_APP& record, PrinterDescription& printers,
                                const InstallSettings& settings, const RunPlace& place, bool reinstall) {
    const std::wstring printerInfo = printers.BuildPrinterInfo(record);
    // Of several predefined printers a driver goes by the one that it gets.
    const bool hasOwnPrinter = settings.GetBool(Tag::INSTALL_FROM_CONFIG) && !record.driverId.empty();
    return {.printerInfo = printerInfo,
            .targetDir = place.targetDir,
            .language = place.language,
            .friendlyName = hasOwnPrinter ? TagDocument::ValueOf(printerInfo, Tag::PRINTER_NAME)
                                          : settings.GetString(Tag::PRINTER_NAME),
            .infocenterShortcut = settings.GetString(Tag::INFOCENTER_SHORTCUT),
            .infocenterLink = settings.GetString(Tag::EXACT_INFOCENTER_LINK),
            .reinstall = reinstall};
}

std::wstring BuildCommandDocument(const CommandValues& values) {
    std::wstring document = values.printerInfo;
    TagDocument::SetElement(document, Tag::TARGET_DIR, values.targetDir);
    TagDocument::SetElement(document, Tag::LANGUAGEID, values.language);
    TagDocument::SetElement(document, Tag::DEVICEFRIENDLYNAME, values.friendlyName);
    TagDocument::SetElement(document, Tag::INFOCENTER_SHORTCUT, values.infocenterShortcut);
    TagDocument::SetElement(document, Tag::INFOCENTER_LINK, values.infocenterLink);
    if (values.reinstall) TagDocument::SetElement(document, Tag::TAG_REINSTALL, L"true");
    return document;
}
