#pragma once

/// The icons, pictures and themes live in a static library; whoever reads them calls this before.
namespace LookResources {
void Ensure();
}
