#pragma once

class QByteArray;

/// What an SVG picture may ask of the renderer. Any thread.
namespace SvgCheck {

/// Whether the bytes are an SVG document that can be drawn without surprises: no entities, no other file
/// or address, no pictures inside, and little enough nesting, repeating and dashing that it is drawn at
/// once.
bool IsHarmless(const QByteArray& bytes);

} // namespace SvgCheck
