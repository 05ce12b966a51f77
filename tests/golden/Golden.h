#pragma once

#include "host/Picture.h"

#include <filesystem>
#include <string>
#include <vector>

namespace test {

// What pages of a folder are drawn at.
constexpr host::Size goldenSize{320, 180};

// Light squares on a light slope, so that what is transparent shows as such.
host::Picture goldenBackground(host::Size size);

// The names of the pages of a folder, without their extension, in order.
std::vector<std::string> pagesOf(const std::string& folder);

// With "-" as "_", as a test's name must be.
std::string testNameOf(std::string name);

// Compares with the reference of that name. With MFILTER_RENEW_GOLDEN set, the picture becomes the reference.
void expectGolden(const std::string& name, const host::PictureView& output);

}  // namespace test
