#include "install/CommandDocument.h"

#include "settings/TagDocument.h"
#include "settings/TagNames.h"

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
