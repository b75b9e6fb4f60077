#pragma once
// The suite's screens and tickets name Windows fonts; on Linux their metric
// twins from the Liberation family stand in for them.
void installFonts();
