#pragma once

/// The icons, pictures and themes live in a static library: call `Ensure` before reading them.
namespace LookResources {
void Ensure();
}
