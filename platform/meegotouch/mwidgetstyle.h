#pragma once

#include <QColor>
#include <QMarginsF>

/// Looks of the single widgets. Lengths are scene pixels, times milliseconds.
namespace MStyle {

// Shared
inline constexpr QColor accent{74, 163, 223};
inline constexpr qreal disabledOpacity = 0.4;
inline constexpr qreal focusRingWidth = 2;

// Button
inline constexpr qreal buttonRadius = 8;
inline constexpr qreal buttonTextMargin = 10;
inline constexpr qreal buttonHeight = 48;
inline constexpr qreal buttonMinimumWidth = 96;
inline constexpr int buttonTextSize = 18;
inline constexpr int buttonSmallestTextSize = 14;
inline constexpr QColor buttonText{255, 255, 255};
inline constexpr QColor buttonBorder{14, 17, 20};
inline constexpr QColor buttonTop{92, 102, 112};
inline constexpr QColor buttonMiddle{58, 66, 74};
inline constexpr QColor buttonBottom{34, 39, 45};
inline constexpr QColor buttonSheen{255, 255, 255, 70};
inline constexpr QColor buttonDownTop{20, 70, 108};
inline constexpr QColor buttonDownBottom{40, 122, 180};
inline constexpr QColor buttonCheckedTop{70, 150, 206};
inline constexpr QColor buttonCheckedBottom{24, 92, 144};

// Label
inline constexpr QColor labelText{26, 29, 33};
inline constexpr int labelTextSize = 20;

// Text edit
inline constexpr qreal fieldRadius = 6;
inline constexpr qreal fieldMargin = 8;
inline constexpr qreal fieldLineHeight = 48;
inline constexpr qreal fieldMultiLineHeight = 144;
inline constexpr qreal fieldWidth = 360;
inline constexpr int fieldTextSize = 20;
inline constexpr QColor fieldBackground{252, 252, 252};
inline constexpr QColor fieldBorder{140, 148, 156};
inline constexpr QColor fieldText{20, 22, 25};
inline constexpr QColor fieldSelectedText{255, 255, 255};
inline constexpr QColor fieldSelection{38, 116, 174};

// Spinner
inline constexpr qreal spinnerSize = 80;
inline constexpr int spinnerDots = 12;
inline constexpr int spinnerTurnTime = 1000;
inline constexpr int spinnerFrameTime = 33;
inline constexpr QColor spinnerPlate{16, 20, 24, 190};
inline constexpr QColor spinnerPlateEdge{255, 255, 255, 60};
inline constexpr QColor spinnerDot{255, 255, 255};

// Panning
inline constexpr qreal panStartDistance = 12;
inline constexpr qreal wheelNotchDistance = 60;
inline constexpr qreal revealMargin = 10;

} // namespace MStyle
