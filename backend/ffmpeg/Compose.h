#pragma once

#include "backend/ffmpeg/Visual.h"

#include <vector>

namespace vantra::ffmpeg {

/// Whether the layer alone is all that there is to see.
bool IsWholePicture(const CLayer& layer, int width, int height);

/// Lays the layers over one another, on transparent ground.
void Compose(const std::vector<CLayer>& layers, CPicture& target);

}  // namespace vantra::ffmpeg
