add_library(kestrune_framework STATIC
  framework/AfxBeginThread.cpp
  framework/CComboBox.cpp
  framework/CDialogEx.cpp
  framework/CEdit.cpp
  framework/CFileDialog.cpp
  framework/CFileFind.cpp
  framework/CImage.cpp
  framework/CListCtrl.cpp
  framework/CMFCLinkCtrl.cpp
  framework/CToolTipCtrl.cpp
  framework/CWinApp.cpp
  framework/CWnd.cpp
  framework/DialogTemplate.cpp
  framework/FocusRing.cpp
  framework/FreshDialog.cpp
  framework/GdiPlus.cpp
  framework/HighContrast.cpp
  framework/Resolution.cpp
  framework/MessageMap.cpp
  framework/Spoken.cpp
  framework/SystemLibrary.cpp
  framework/TextSize.cpp)
target_link_libraries(kestrune_framework PUBLIC kestrune_options
  user32 gdi32 comctl32 shell32 ole32 uuid)
