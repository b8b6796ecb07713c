// The dialog in which the user says where to search: the own subnet, one host, or another subnet.
#pragma once

#include <string>

#include "discovery/SearchCheck.h"
#include "framework/CEdit.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/CQorLinkButton.h"
#include "wizard/InstallDialogEx.h"

// Leaves the search document in the settings when it ends with OK; it starts no search.
class ModifySearchDlg : public InstallDialogEx {
public:
    ModifySearchDlg(const PageContext& context, CWnd& page);

    bool PreTranslateMessage(MSG* message) override;

private:
    bool OnInitDialog() override;
    void OnOK() override;
    const MessageMap& GetMessageMap() const override;

    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    LRESULT OnTimer(WPARAM timer, LPARAM);
    void OnRadio();
    void ScheduleCheck();

    void SetUpTexts();
    void SetUpTips();
    void Restore(int radioId);
    void Fill(CEdit& edit, const std::wstring& text);
    bool IsChecked(int radioId) const;
    void CheckRadio(int radioId);
    // The own subnet where no radio is checked.
    SearchKind SelectedKind() const;
    void EnableFields(SearchKind kind);

    void Check();
    bool IsSearchGood();
    // Does to the field what the check says, and says that to the user. Returns whether the text is accepted.
    bool Obey(CEdit& edit, const FieldVerdict& verdict);

    SearchCheck check;
    CEdit hostEdit;
    CEdit addressEdit;
    CEdit maskEdit;
    CQorFlatButton okButton;
    CQorFlatButton cancelButton;
    CQorLinkButton helpButton;
};
