#include "install/FinishService.h"

#include <windows.h>

#include <string>

#include "CommonLib/Application.h"
#include "CommonLib/Exception.h"
#include "CommonLib/TextUtilities.h"
#include "settings/TagNames.h"

std::uint32_t FinishService::DoRun() {
    const std::wstring folder = settings.GetString(Tag::TARGET_DIR);
    try {
        for (const std::wstring& program : SplitClosed(settings.GetStartApp(), L';')) {
            Application application;
            application.commandLine = std::wstring(folder).append(L"\\").append(program);
            application.creationFlags = NORMAL_PRIORITY_CLASS;
            application.launch();
        }
    } catch (const Exception& exception) {
        return static_cast<std::uint32_t>(exception.getCode());
    }
    return 0;
}
