#pragma once
// Screen fitting. Screens are drawn for 1024 by 738 pixels (15360 by 11070
// twips, 15 to a pixel) and never scaled.
class QWidget;
class Screen;

inline constexpr int twipsPerPixel = 15;
inline constexpr int designWidth = 1024;
inline constexpr int designHeight = 738;
constexpr int px(int twips) {
    return twips / twipsPerPixel;
}

// Full screens: the design size, centred across the width of the widget's
// screen, at the top, brought to the front. A narrower screen gives a negative
// Left; nothing is shrunk.
void place_ecran(QWidget& form);
// Dialogs: the size stays; centred across the screen, and vertically on the
// design height (not the real screen's).
void centre_ecran(QWidget& form);
// The same with a given screen width in pixels.
void place_ecran(QWidget& form, int screenWidth);
void centre_ecran(QWidget& form, int screenWidth);
// Lays the eight pieces of the frame, ccb(0) to ccb(7), from the form's
// current size, behind all other controls.
void pose_cadre(Screen& form);
