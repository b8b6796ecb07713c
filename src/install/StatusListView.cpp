#include "install/StatusListView.h"

#include <windows.h>

#include <commctrl.h>

#include "CommonLib/Files.h"
#include "CommonLib/SystemVersion.h"
#include "framework/CImage.h"
#include "framework/Resolution.h"
#include "install/FinishTexts.h"
#include "settings/TagNames.h"
#include "settings/TextExpansion.h"

namespace {

constexpr int columnCount = 3;
constexpr int checkPicture = 0;
constexpr int crossPicture = 1;
constexpr int noPicture = -1;

// By design: the mark goes to names that begin with the point; one with a point further on stays as it is.
std::wstring ShownName(const std::wstring& name) {
    return IsRightToLeftLocale() && name.starts_with(L'.') ? MarkNumberLeftToRight(name) : name;
}

}  // namespace

void StatusListView::Attach(HWND listView) {
    list = listView;
    LoadPictures();
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT);
    ListView_SetTextBkColor(list, CLR_NONE);
}

void StatusListView::LoadPictures() {
    ATL::CImage check;
    ATL::CImage cross;
    const int resolution = ResolutionOf(list);
    if (!check.Load(GetPicturePath(L"check.png"), resolution) ||
        !cross.Load(GetPicturePath(L"x.png"), resolution))
        return;
    const UINT mirrored = IsRightToLeft(localizer) ? ILC_MIRROR : 0;
    pictures.reset(ImageList_Create(check.GetWidth(), check.GetHeight(), ILC_COLOR32 | mirrored, 2, 0));
    ImageList_Add(pictures.get(), check.GetBitmap(), nullptr);
    ImageList_Add(pictures.get(), cross.GetBitmap(), nullptr);
    ListView_SetImageList(list, pictures.get(), LVSIL_SMALL);
}

std::vector<StatusLine> StatusListView::Fill() {
    ListView_DeleteAllItems(list);
    while (ListView_DeleteColumn(list, 0) != FALSE) continue;
    InsertColumns();
    SizeColumns();
    std::vector<StatusLine> lines = ReadStatusDocument(settings.GetString(Tag::APP_INSTALLATION_STATUS));
    for (std::size_t row = 0; row < lines.size(); ++row) InsertLine(static_cast<int>(row), lines[row]);
    SizeColumns();
    LVCOLUMNW last{.mask = LVCF_FMT, .fmt = LVCFMT_CENTER};
    ::SendMessageW(list, LVM_SETCOLUMNW, columnCount - 1, reinterpret_cast<LPARAM>(&last));
    return lines;
}

void StatusListView::InsertColumns() const {
    for (int column = 0; column < columnCount; ++column) {
        LVCOLUMNW description{.mask = LVCF_SUBITEM};
        description.iSubItem = column;
        ::SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
                       reinterpret_cast<LPARAM>(&description));
    }
}

void StatusListView::SizeColumns() const {
    for (int column = 0; column < columnCount; ++column) {
        ListView_SetColumnWidth(list, column, LVSCW_AUTOSIZE_USEHEADER);
    }
}

void StatusListView::InsertLine(int row, const StatusLine& line) const {
    LVITEMW item{.mask = LVIF_IMAGE};
    item.iItem = row;
    item.iImage = IsGoodStatus(line.status) ? checkPicture : crossPicture;
    if (!IsWindowsVersionOrGreater(WindowsVersion::Vista)) item.iImage = noPicture;
    ::SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    SetText(row, 1, ShownName(line.name));
    SetText(row, 2, localizer.GetString(StatusTextKey(line.status)));
}

void StatusListView::SetText(int row, int column, std::wstring text) const {
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    ::SendMessageW(list, LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void StatusListView::KeepUnselected(const NMHDR& header) {
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
    if ((change.uNewState & LVIS_SELECTED) != 0) {
        ListView_SetItemState(header.hwndFrom, change.iItem, 0, LVIS_SELECTED);
    }
}
