#pragma once

#include "EmbeddedFile.h"

#include <vector>

namespace TLGateway {

// The files of the demo pages. Their source is made by the build.
[[nodiscard]] const std::vector<EmbeddedFile>& EmbeddedFiles();

} // namespace TLGateway
