// Ids of the program's resources. The dialog and control ids are also those by which the code addresses them.
#define IDR_ICON 128
