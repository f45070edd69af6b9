// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QSize>
#include <QStringList>

/// Every colour, radius, font size and duration of the widgets. Lengths are scene pixels, times milliseconds.
namespace MStyle {

// The scene: one screen of the phone, less its status bar
inline constexpr QSize sceneSize{480, 814};

// Text: a phone's narrow letters where there are any, else what the system has
inline QStringList fontFamilies()
{
    return {QStringLiteral("Liberation Sans"), QStringLiteral("Nimbus Sans"), QStringLiteral("Arimo"),
            QStringLiteral("DejaVu Sans Condensed")};
}
inline constexpr int fontPixelSize = 20;
inline constexpr int narrowestLetters = 70; // percent of a letter's own width
// As much of a text as is ever laid out: more than any label or button shows
inline constexpr int laidOutCharacters = 1000;

// Popups: a pane of dark glass over a dimmed page
inline constexpr int fadeInDuration = 180;
inline constexpr int fadeOutDuration = 140;
inline constexpr QColor dim{0, 0, 0, 150};
inline constexpr QColor glassTop{66, 72, 79, 248};
inline constexpr QColor glassMiddle{33, 37, 41, 248};
inline constexpr QColor glassBottom{18, 20, 23, 248};
inline constexpr QColor glassEdgeTop{255, 255, 255, 96};
inline constexpr QColor glassEdgeBottom{255, 255, 255, 24};
inline constexpr QColor glassShadow{0, 0, 0, 150};
inline constexpr qreal glassShadowWidth = 30;
inline constexpr qreal glassShadowDrop = 6;
inline constexpr qreal popupRadius = 14;
inline constexpr qreal popupMargin = 24;
inline constexpr qreal popupPadding = 20;
inline constexpr qreal popupSpacing = 20;
inline constexpr qreal messagePadding = 32;
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
inline constexpr QColor rowPressedTop{26, 120, 174};
inline constexpr QColor rowPressedBottom{10, 84, 131};

// Gestures
inline constexpr qreal dragThreshold = 10;

// Widgets: faces and rims are those of the chrome's artwork
inline constexpr QColor accent{39, 140, 194};
inline constexpr qreal disabledOpacity = 0.4;
inline constexpr qreal focusRingWidth = 2;
inline constexpr qreal focusRingEdgeWidth = 1.5;
inline constexpr qreal focusRingAir = 1;
inline constexpr QColor focusRing{120, 210, 255};
inline constexpr QColor focusRingEdge{0, 32, 52};

inline constexpr qreal reactiveSize = 48; // what a thumb hits
inline constexpr qreal buttonRadius = 7;
inline constexpr qreal buttonTextMargin = 10;
inline constexpr qreal buttonHeight = 48;
inline constexpr qreal buttonMinimumWidth = 96;
inline constexpr int buttonTextSize = 18;
inline constexpr QColor buttonText{255, 255, 255};
inline constexpr QColor buttonTop{93, 108, 119};
inline constexpr QColor buttonBottom{40, 50, 58};
inline constexpr QColor buttonRim{137, 152, 163};
inline constexpr QColor buttonGloss{255, 255, 255, 89};
inline constexpr QColor buttonDownTop{7, 80, 125};
inline constexpr QColor buttonDownBottom{26, 120, 174};
inline constexpr QColor buttonDownGloss{0, 0, 0, 89};
inline constexpr QColor buttonCheckedTop{26, 120, 174};
inline constexpr QColor buttonCheckedBottom{10, 84, 131};
inline constexpr QColor buttonLitRim{165, 220, 249};

inline constexpr qreal closeButtonSize = 52;
inline constexpr qreal closeButtonMargin = 4;
inline constexpr qreal closeButtonRimWidth = 2;
inline constexpr qreal closeButtonCrossSize = 0.4; // of the radius
inline constexpr qreal closeButtonCrossWidth = 4;
inline constexpr QColor closeButtonFace{20, 24, 28, 230};
inline constexpr QColor closeButtonDownFace{10, 84, 131};
inline constexpr QColor closeButtonRim{255, 255, 255};

inline constexpr QColor labelText{26, 29, 33};

inline constexpr qreal fieldRadius = 6;
inline constexpr qreal fieldInset = 4;
inline constexpr qreal fieldPadding = 4;
inline constexpr qreal fieldHeight = 48;
inline constexpr qreal fieldMultiLineHeight = 144;
inline constexpr qreal fieldWidth = 360;
inline constexpr QColor fieldFace{252, 252, 252};
inline constexpr QColor fieldRim{137, 152, 163};
inline constexpr QColor fieldText{20, 23, 26};
inline constexpr QColor fieldSelection{38, 129, 184};
inline constexpr QColor fieldSelectedText{255, 255, 255};

inline constexpr qreal spinnerSize = 80;
inline constexpr int spinnerDots = 12;
inline constexpr int spinnerTurnDuration = 1000;
inline constexpr int spinnerFrameDuration = 33;
inline constexpr QColor spinnerPlate{16, 20, 24, 208};
inline constexpr QColor spinnerPlateRim{255, 255, 255, 80};
inline constexpr QColor spinnerDot{255, 255, 255};

// Panning
inline constexpr qreal wheelNotchDistance = 60;
inline constexpr qreal revealMargin = 10;
inline constexpr int cursorMargin = 40; // pixels of the window, above a software keyboard
inline constexpr qreal positionBarWidth = 4;
inline constexpr qreal positionBarMargin = 2;
inline constexpr qreal positionBarSmallestLength = 24;
inline constexpr int positionBarHoldDuration = 700;
inline constexpr int positionBarFadeInDuration = 100;
inline constexpr int positionBarFadeOutDuration = 300;
inline constexpr QColor positionBar{104, 119, 131, 235};
inline constexpr QColor positionBarRim{0, 0, 0, 70};

} // namespace MStyle
