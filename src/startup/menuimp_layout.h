#pragma once
// The controls of menuimp and where they stand on the 1024 by 738 design.
class Screen;

namespace menuimp_layout {
// Makes every control of the menu with its name, text and place, and the
// hidden bar slots. Pictures and bar captions are filled by the load.
void build(Screen& form);
}  // namespace menuimp_layout
