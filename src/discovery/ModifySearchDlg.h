// The dialog in which the user says where to search: the own subnet, one host, or another subnet.
#pragma once

#include <string>
#include <string_view>

#include "framework/CEdit.h"
#include "settings/TextKeys.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/CQorLinkButton.h"
#include "wizard/InstallDialogEx.h"

// Leaves the search document in the settings when it ends with OK; it starts no search.
class ModifySearchDlg : public InstallDialogEx {
public:
    ModifySearchDlg(const PageContext& context, CWnd& page);

    bool PreTranslateMessage(MSG* message) override;

protected:
    bool OnInitDialog() override;
    void OnOK() override;
    const MessageMap& GetMessageMap() const override;

private:
    // A field for an address: the limit of its text, what is said about it, and how it was last found.
    struct AddressField {
        CEdit edit;
        TextId limitText;
        TextId invalidText;
        std::wstring lastText;
    };

    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    LRESULT OnTimer(WPARAM timer, LPARAM);
    void OnRadio();
    void ScheduleCheck();

    void SetUpTexts();
    void RestoreSubnet(const std::wstring& subnet);
    void Fill(CEdit& edit, const std::wstring& text);
    bool IsChecked(int radioId) const;
    void CheckRadio(int radioId);
    void EnableFields(bool host, bool subnet);

    void Check();
    bool CheckHost();
    bool CheckAddress(AddressField& field);
    bool TestAddress(AddressField& field, const std::wstring& text);
    void CutOff(CEdit& edit, std::size_t longest, TextId limitText);
    void Complain(CEdit& edit, TextId textKey);

    CEdit hostEdit;
    std::wstring lastHostText;
    AddressField addressField;
    AddressField maskField;
    // The next check runs although the text did not change.
    bool forceCheck = false;
    CQorFlatButton okButton;
    CQorFlatButton cancelButton;
    CQorLinkButton helpButton;
};
