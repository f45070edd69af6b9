#pragma once

#include <QColor>
#include <QSize>

/// Every colour, radius, font size and duration of the widgets. Lengths are scene pixels, times milliseconds.
namespace MStyle {

// The scene: one screen of the phone held upright, less its status bar.
constexpr QSize portraitSceneSize(480, 814);
constexpr QSize landscapeSceneSize(814, 480);

// Text
constexpr int fontPixelSize = 20;
constexpr int titlePixelSize = 24;

// Popups: a pane of dark glass over a dimmed page
constexpr int fadeInDuration = 180;
constexpr int fadeOutDuration = 140;
constexpr QRgb dimColor = 0xa6000000;
constexpr QRgb glassTopColor = 0xf03a3d42;
constexpr QRgb glassBottomColor = 0xf0131517;
constexpr QRgb glassEdgeColor = 0x40ffffff;
constexpr QRgb glassShadowColor = 0x50000000;
constexpr QRgb titleColor = 0xffffffff;
constexpr QRgb titleLineColor = 0xff6e94a8;
constexpr QRgb popupTextColor = 0xfff2f4f5;
constexpr qreal popupRadius = 14;
constexpr qreal popupMargin = 24;
constexpr qreal popupPadding = 20;
constexpr qreal popupSpacing = 16;
constexpr qreal titleBarHeight = 60;
constexpr qreal dialogButtonHeight = 64;

// Lists
constexpr qreal rowHeight = 72;
constexpr QRgb rowLineColor = 0x24ffffff;
constexpr QRgb rowCurrentColor = 0x306e94a8;
constexpr QRgb rowPressedColor = 0xff6e94a8;
constexpr QRgb rowPressedTextColor = 0xff000000;

// Gestures
constexpr qreal dragThreshold = 10;

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
