#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <tinyxml.h>

namespace vantra::infilexml {

/// What a text may have. Elements lie in one another at most so deep.
constexpr std::size_t kMostTextBytes = std::size_t{16} << 20;
constexpr std::size_t kMostElements = 200'000;
constexpr std::size_t kDeepest = 64;
/// Of one element. They are looked for one by one.
constexpr int kMostAttributes = 100;

/// The elements of an XML text with their attributes; what lies between them is left out. Null for what is no XML, or
/// declares entities or attributes. Throws orlo::CError beyond the limits.
std::unique_ptr<TiXmlElement> ParseElement(std::string_view text);
/// As one XML text in UTF-8. Throws orlo::CError for one that is too large to be read.
std::string PrintElement(const TiXmlElement& element);

}  // namespace vantra::infilexml
