// SPDX-License-Identifier: MIT
#pragma once

/// Tap and pan by one finger or the mouse.
///
/// Qt's own recognisers want two fingers for a pan, and touch for a tap. These hear the mouse and one finger alike,
/// with what arrives at a graphics widget that grabbed the gestures or at its children, and leave every event to whom
/// it was for.
namespace MFingerGestures {

/// Registers the recognisers beside Qt's, once; later calls do nothing.
void install();

} // namespace MFingerGestures
