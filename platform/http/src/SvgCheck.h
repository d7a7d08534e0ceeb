#pragma once

class QByteArray;

/// What an SVG picture may ask of the renderer. Any thread.
namespace SvgCheck {

/// Whether the bytes are an SVG document that is safe and quick to draw: no entities, no other files or
/// addresses, no embedded pictures, and little nesting, repeating and dashing.
bool IsHarmless(const QByteArray& bytes);

} // namespace SvgCheck
