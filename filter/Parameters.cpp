#include "filter/Parameters.h"

#include "filter/Attachments.h"
#include "filter/InfoStore.h"
#include "foundation/PlatformNumber.h"
#include "graphics/geometry/XmlParse.h"
#include "graphics/model/Base64.h"
#include "graphics/paint/Toolkit.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

namespace authfilter {

namespace {

std::int32_t toInt(const char* text) {
  const long long value = std::strtoll(text, nullptr, 10);
  return static_cast<std::int32_t>(
      std::clamp<long long>(value, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

void setLastError(CInfoStore& store, const std::string& message) {
  const std::size_t size = std::min(message.size() + 1, store.lastError.size());
  std::memcpy(store.lastError.data(), message.c_str(), size);
}

constexpr graphics::xml::CParseLimits kPageLimits{.depth = 256, .elements = 4'000'000};

bool setPluginData(CInfoStore& store, const char* key, const char* value) {
  const graphics::CToolkitLock lock;
  store.pluginData = std::make_unique<wxXmlDocument>();
  graphics::xml::CParsed page = graphics::xml::Parse(graphics::DecodeBase64(value), kPageLimits);
  if (page.document) {
    store.pluginData = std::move(page.document);
    return true;
  }
  std::string message = std::string("could not parse xml for parameter ") + key;
  if (page.beyondLimit) message += ": " + page.problem;
  setLastError(store, message);
  return false;
}

struct CParameter {
  std::string_view key;
  bool (*set)(CInfoStore& store, const char* key, const char* value);
};

template <auto Member>
bool setText(CInfoStore& store, const char*, const char* value) {
  store.*Member = wxString::FromUTF8(value);
  return true;
}

template <auto Member>
bool setNumber(CInfoStore& store, const char*, const char* value) {
  store.*Member = toInt(value);
  return true;
}

constexpr CParameter kParameters[] = {
    {"attachments",
     [](CInfoStore& store, const char*, const char* value) {
       SetAttachments(store, value);
       return true;
     }},
    {"plugindata", setPluginData},
    {"skinpath", setText<&CInfoStore::skinPath>},
    {"state",
     [](CInfoStore& store, const char* key, const char* value) {
       store.stateSet = true;
       return setText<&CInfoStore::state>(store, key, value);
     }},
    {"noalpha",
     [](CInfoStore& store, const char*, const char* value) {
       store.noAlpha = toInt(value) != 0;
       return true;
     }},
    {"nomovies",
     [](CInfoStore& store, const char*, const char* value) {
       store.noMovies = toInt(value) != 0;
       return true;
     }},
    {"width", setNumber<&CInfoStore::width>},
    {"height", setNumber<&CInfoStore::height>},
    {"duration",
     [](CInfoStore& store, const char*, const char* value) {
       store.duration = orlo::readDouble(value);
       return true;
     }},
    {"frameratenum", setNumber<&CInfoStore::frameRateNum>},
    {"framerateden", setNumber<&CInfoStore::frameRateDen>},
    {"basedirs.filter.uri", setText<&CInfoStore::filterBaseDir>},
    {"basedirs.animation.uri", setText<&CInfoStore::animationBaseDir>},
    {"basedirs.theme.uri", setText<&CInfoStore::themeBaseDir>},
};

}  // namespace

bool SetParam(CInfoStore& store, const char* key, const char* value) {
  if (!key) key = "(null)";
  if (!value) value = "";
  for (const CParameter& parameter : kParameters)
    if (parameter.key == key) return parameter.set(store, key, value);
  setLastError(store, std::string("subtitlefilter unknown parameter ") + key);
  return false;
}

}  // namespace authfilter
