#pragma once

#include <QColor>
#include <QSize>

/// Every colour, radius, font size and duration of the widgets. Lengths are scene pixels, times milliseconds.
namespace MStyle {

// The scene: one screen of the phone, less its status bar
inline constexpr QSize portraitSceneSize{480, 814};
inline constexpr QSize landscapeSceneSize{814, 480};

// Text
inline constexpr int fontPixelSize = 20;

// Popups: a pane of dark glass over a dimmed page
inline constexpr int fadeInDuration = 180;
inline constexpr int fadeOutDuration = 140;
inline constexpr QColor dim{0, 0, 0, 150};
inline constexpr QColor glassTop{66, 72, 79, 248};
inline constexpr QColor glassMiddle{33, 37, 41, 248};
inline constexpr QColor glassBottom{18, 20, 23, 248};
inline constexpr QColor glassEdgeTop{255, 255, 255, 96};
inline constexpr QColor glassEdgeBottom{255, 255, 255, 24};
inline constexpr QColor glassShadow{0, 0, 0, 20};
inline constexpr int glassShadowWidth = 10;
inline constexpr qreal popupRadius = 14;
inline constexpr qreal popupMargin = 24;
inline constexpr qreal popupPadding = 20;
inline constexpr qreal popupSpacing = 20;
inline constexpr QColor popupText{242, 244, 246};
inline constexpr int popupTextSize = 22;
inline constexpr qreal titleBarHeight = 64;
inline constexpr int titleTextSize = 24;
inline constexpr QColor titleText{255, 255, 255};
inline constexpr qreal dialogButtonHeight = 64;

// Lists in popups
inline constexpr qreal listPadding = 8;
inline constexpr qreal rowHeight = 72;
inline constexpr qreal rowRadius = 8;
inline constexpr QColor rowLine{255, 255, 255, 30};
inline constexpr QColor rowPressedTop{40, 122, 180};
inline constexpr QColor rowPressedBottom{20, 84, 132};

// Gestures
inline constexpr qreal dragThreshold = 10;

// Widgets: faces and rims are those of the chrome's artwork
constexpr QRgb accentColor = 0xff278cc2;
constexpr qreal disabledOpacity = 0.4;
constexpr qreal focusRingWidth = 2;

constexpr qreal buttonRadius = 7;
constexpr qreal buttonTextMargin = 10;
constexpr qreal buttonHeight = 48;
constexpr qreal buttonMinimumWidth = 96;
constexpr int buttonTextSize = 18;
constexpr int buttonSmallestTextSize = 14;
constexpr QRgb buttonTextColor = 0xffffffff;
constexpr QRgb buttonTopColor = 0xff5d6c77;
constexpr QRgb buttonBottomColor = 0xff28323a;
constexpr QRgb buttonRimColor = 0xff8998a3;
constexpr QRgb buttonGlossColor = 0x59ffffff;
constexpr QRgb buttonDownTopColor = 0xff07507d;
constexpr QRgb buttonDownBottomColor = 0xff278cc2;
constexpr QRgb buttonDownGlossColor = 0x59000000;
constexpr QRgb buttonCheckedTopColor = 0xff2681b8;
constexpr QRgb buttonCheckedBottomColor = 0xff0a5483;
constexpr QRgb buttonLitRimColor = 0xffa5dcf9;

constexpr QRgb labelTextColor = 0xff1a1d21;

constexpr qreal fieldRadius = 6;
constexpr qreal fieldInset = 4;
constexpr qreal fieldPadding = 4;
constexpr qreal fieldHeight = 48;
constexpr qreal fieldMultiLineHeight = 144;
constexpr qreal fieldWidth = 360;
constexpr QRgb fieldColor = 0xfffcfcfc;
constexpr QRgb fieldRimColor = 0xff8998a3;
constexpr QRgb fieldTextColor = 0xff14171a;
constexpr QRgb fieldSelectionColor = 0xff2681b8;
constexpr QRgb fieldSelectedTextColor = 0xffffffff;

constexpr qreal spinnerSize = 80;
constexpr int spinnerDots = 12;
constexpr int spinnerTurnDuration = 1000;
constexpr int spinnerFrameDuration = 33;
constexpr QRgb spinnerPlateColor = 0xd0101418;
constexpr QRgb spinnerPlateRimColor = 0x50ffffff;
constexpr QRgb spinnerDotColor = 0xffffffff;

// Panning
constexpr qreal wheelNotchDistance = 60;
constexpr qreal revealMargin = 10;
constexpr qreal positionBarWidth = 4;
constexpr qreal positionBarMargin = 2;
constexpr qreal positionBarSmallestLength = 24;
constexpr int positionBarHoldDuration = 700;
constexpr int positionBarFadeDuration = 300;
constexpr QRgb positionBarColor = 0xb0404a52;
constexpr QRgb positionBarRimColor = 0x60ffffff;

} // namespace MStyle
