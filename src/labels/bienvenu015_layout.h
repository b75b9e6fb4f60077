#pragma once
// The controls of bienvenu015 and where they stand on the 1024 by 738 design.
#include <QSize>

class Screen;

namespace bienvenu015_layout {
// The size a format's picture is shown at.
inline constexpr QSize pictureSize{136, 190};
// Makes every control with its name, text and place, and the two bar slots.
void build(Screen& form);
}  // namespace bienvenu015_layout
