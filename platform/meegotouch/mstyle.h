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

} // namespace MStyle
