// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>

/// The enumerations that several classes share.
namespace M {

/// The buttons that a dialog can make by itself.
enum StandardButton {
    NoStandardButton = 0x0,
    OkButton = 0x1,
    CancelButton = 0x2,
};
Q_DECLARE_FLAGS(StandardButtons, StandardButton)
Q_DECLARE_OPERATORS_FOR_FLAGS(M::StandardButtons)

/// What a text field is for: chooses the keys that a software keyboard offers, refuses nothing that is typed.
enum TextContentType {
    FreeTextContentType,
    EmailContentType,
};

} // namespace M
