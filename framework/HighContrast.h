// The system's high-contrast setting.
#pragma once

// Whether the user has high contrast on at this moment.
bool IsHighContrastOn();
