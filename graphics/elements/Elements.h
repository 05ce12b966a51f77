#pragma once

namespace graphics {

/// Makes the kinds of this folder known, so that pages can name them. May be called again.
void RegisterElements();

}  // namespace graphics
