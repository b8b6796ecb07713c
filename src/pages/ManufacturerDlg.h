// The page on which the user picks the brand; it decides by itself where there is nothing to pick.
#pragma once

#include <string>
#include <vector>

#include "framework/CComboBox.h"
#include "pages/ManufacturerList.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/InstallDialogEx.h"

class ManufacturerDlg : public InstallDialogEx {
public:
    explicit ManufacturerDlg(const PageContext& context);

private:
    bool OnInitDialog() override;
    void OnOK() override;
    const MessageMap& GetMessageMap() const override;

    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    void OnSelectionChange();
    void GetManufacturers();
    void BuildList();
    void SelectDefault();

    // As the package names them; each entry of the list carries its index here.
    std::vector<Manufacturer> manufacturers;
    CComboBox list;
    CQorFlatButton nextButton;
    CQorFlatButton cancelButton;
    CQorFlatButton helpButton;
};
