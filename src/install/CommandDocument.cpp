#include "install/CommandDocument.h"

#include "settings/TagDocument.h"

std::wstring BuildCommandDocument(const CommandValues& values) {
    std::wstring document = values.printerInfo;
    TagDocument::SetElement(document, L"TARGET_DIR", values.targetDir);
    TagDocument::SetElement(document, L"LANGUAGEID", values.language);
    TagDocument::SetElement(document, L"DEVICEFRIENDLYNAME", values.friendlyName);
    TagDocument::SetElement(document, L"INFOCENTER_SHORTCUT", values.infocenterShortcut);
    TagDocument::SetElement(document, L"INFOCENTER_LINK", values.infocenterLink);
    if (values.reinstall) TagDocument::SetElement(document, L"TAG_REINSTALL", L"true");
    return document;
}
