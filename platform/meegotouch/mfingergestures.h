#pragma once

/// Tap and pan by one finger or the mouse.
///
/// Qt's own recognisers want two fingers for a pan, and touch events for both; these take what arrives at a graphics
/// widget or its children, be it mouse or touch, and leave every event to whom it was for.
namespace MFingerGestures {

/// Registers the recognisers in the place of Qt's, once; later calls do nothing.
void install();

} // namespace MFingerGestures
