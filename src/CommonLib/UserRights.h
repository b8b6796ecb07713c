// What the user of this process may do.
#pragma once

// Returns true if the process runs with the rights of the local Administrators.
bool IsUserAdministrator();
