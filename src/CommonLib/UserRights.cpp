#include "CommonLib/UserRights.h"

#include <windows.h>

#include "framework/Handles.h"

bool IsUserAdministrator() {
    SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
    Sid administrators;
    BOOL member = FALSE;
    return AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS, 0, 0,
                                    0, 0, 0, 0, administrators.put()) != FALSE &&
           CheckTokenMembership(nullptr, administrators.get(), &member) != FALSE && member == TRUE;
}
