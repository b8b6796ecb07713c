// The list that shows how each package went.
#pragma once

#include <windows.h>

#include <vector>

#include "framework/CListCtrl.h"
#include "framework/Handles.h"
#include "install/StatusDocument.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"

class StatusListView : public CListCtrl {
public:
    // Reads APP_INSTALLATION_STATUS of the settings; both must outlive the object.
    StatusListView(const InstallSettings& store, const Localizer& texts)
        : settings(store), localizer(texts) {}

    // Gives the list its look, and its pictures if both can be loaded.
    void SetUp();
    // Loads the pictures for the text size by now.
    void LoadPictures();
    // Replaces the rows by the lines of the run's status document, and returns those.
    std::vector<StatusLine> Fill();
    // For LVN_ITEMCHANGED: keeps rows from staying selected.
    static void KeepUnselected(const NMHDR& header);

private:
    void InsertColumns();
    void FitColumns();
    void InsertLine(int row, const StatusLine& line);

    const InstallSettings& settings;
    const Localizer& localizer;
    ImageList pictures;
};
