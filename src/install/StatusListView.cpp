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

void StatusListView::SetUp() {
    LoadPictures();
    SetExtendedStyle(LVS_EX_FULLROWSELECT);
    ListView_SetTextBkColor(GetSafeHwnd(), CLR_NONE);
}

void StatusListView::LoadPictures() {
    ATL::CImage check;
    ATL::CImage cross;
    const int resolution = ResolutionOf(GetSafeHwnd());
    if (!check.Load(GetPicturePath(L"check.png"), resolution) ||
        !cross.Load(GetPicturePath(L"x.png"), resolution))
        return;
    const UINT mirrored = IsRightToLeft(localizer) ? ILC_MIRROR : 0;
    pictures.reset(ImageList_Create(check.GetWidth(), check.GetHeight(), ILC_COLOR32 | mirrored, 2, 0));
    ImageList_Add(pictures.get(), check.GetBitmap(), nullptr);
    ImageList_Add(pictures.get(), cross.GetBitmap(), nullptr);
    SetImageList(pictures.get());
}

std::vector<StatusLine> StatusListView::Fill() {
    DeleteAllItems();
    DeleteAllColumns();
    InsertColumns();
    FitColumns();
    std::vector<StatusLine> lines = ReadStatusDocument(settings.GetString(Tag::APP_INSTALLATION_STATUS));
    for (std::size_t row = 0; row < lines.size(); ++row) InsertLine(static_cast<int>(row), lines[row]);
    FitColumns();
    CentreColumn(columnCount - 1);
    return lines;
}

void StatusListView::InsertColumns() {
    for (int column = 0; column < columnCount; ++column) InsertColumn(column, {});
}

void StatusListView::FitColumns() {
    for (int column = 0; column < columnCount; ++column) FitColumnToHeading(column);
}

void StatusListView::InsertLine(int row, const StatusLine& line) {
    InsertItem(row, {}, 0);
    int picture = IsGoodStatus(line.status) ? checkPicture : crossPicture;
    if (!IsWindowsVersionOrGreater(WindowsVersion::Vista)) picture = noPicture;
    SetItemImage(row, picture);
    SetItemText(row, 1, ShownName(line.name));
    SetItemText(row, 2, localizer.GetString(StatusTextKey(line.status)));
}

void StatusListView::KeepUnselected(const NMHDR& header) {
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
    if ((change.uNewState & LVIS_SELECTED) != 0) {
        ListView_SetItemState(header.hwndFrom, change.iItem, 0, LVIS_SELECTED);
    }
}
