#include "tests/windows/world/DialogsWorld.h"

#include <commctrl.h>

#include <filesystem>

#include "CommonLib/Files.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/SampleLanguages.h"
#include "tests/windows/world/ScratchFolder.h"

namespace {

BOOL CALLBACK GiveText(HWND control, LPARAM) {
    const std::wstring kind = ClassOf(control);
    wchar_t text[] = L"Ink";
    if ((kind == WC_STATICW || kind == WC_BUTTONW || kind == WC_EDITW) && TextOf(control).empty())
        SetWindowTextW(control, text);
    if (kind == WC_LISTVIEWW && ListView_GetItemCount(control) == 0) {
        LVITEMW row{.mask = LVIF_TEXT, .pszText = text};
        LVCOLUMNW column{.mask = LVCF_TEXT | LVCF_WIDTH, .cx = 100, .pszText = text};
        SendMessageW(control, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
        SendMessageW(control, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&row));
    }
    return TRUE;
}

bool HasSize(HWND control) {
    RECT area{};
    GetClientRect(control, &area);
    return IsRectEmpty(&area) == FALSE;
}

}  // namespace

DialogsWorld::DialogsWorld(const std::string& language) {
    AddTexts(SampleTexts(language));
    ReadTextsAnew();
    tree.Add(L"Notices\\EULA\\eula_en.txt", "Be kind.\n");
    Settings().SetString(Tag::INFOCENTER_LINK, L"http://help.test");
    Settings().SetString(Tag::PRODUCT_REGISTRATION_LINK, L"http://register.test");
    Settings().SetString(Tag::APP_INSTALLATION_STATUS, L"<App 0><NAME>Ink</NAME><STATUS>1</STATUS></App 0>");
    EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
    window.MoveWindow(0, 0, 900, 900);
    window.ShowWindow(SW_SHOW);
}

std::unique_ptr<InstallDialogEx> DialogsWorld::Open(const DialogCase& dialogCase) {
    auto dialog = dialogCase.make({context, window, applications, drivers, configuration});
    EXPECT_TRUE(dialog->Create(dialog->TemplateId(), &window));
    dialog->ShowWindow(SW_SHOW);
    EnumChildWindows(dialog->GetSafeHwnd(), &GiveText, 0);
    return dialog;
}

void AddPictures(const ProgramTree& tree) {
    const auto pictures = std::filesystem::path(GetExeDirectory()) / L"../../../../../package/images";
    for (const auto& picture : std::filesystem::directory_iterator(pictures))
        tree.Add(L"Setup\\res\\images\\" + picture.path().filename().wstring(), ReadBytes(picture.path()));
}

void ForEachSeen(const InstallDialogEx& dialog, const std::function<void(HWND)>& deed) {
    for (HWND control = GetWindow(dialog.GetSafeHwnd(), GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        if (IsWindowVisible(control) != FALSE && HasSize(control)) deed(control);
    }
}

LONG_PTR StyleOf(HWND control) {
    return GetWindowLongPtrW(control, GWL_STYLE);
}
