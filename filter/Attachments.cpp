#include "filter/Attachments.h"

#include "filter/InfoStore.h"
#include "graphics/paint/Toolkit.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/strconv.h>
#include <wx/wfstream.h>

#include <charconv>
#include <string>
#include <string_view>

namespace authfilter {

namespace {

wxString PathOf(std::string_view uri) {
  constexpr std::string_view kFile = "file://";
  if (uri.starts_with(kFile)) uri.remove_prefix(kFile.size());
  std::string path;
  for (std::size_t i = 0; i < uri.size(); ++i) {
    const char* const digits = uri.data() + i + 1;
    unsigned char byte = 0;
    if (uri[i] == '%' && i + 2 < uri.size() && std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      path += static_cast<char>(byte);
      i += 2;
    } else {
      path += uri[i];
    }
  }
  return wxString(path.data(), *wxConvFileName, path.size());
}

}  // namespace

void SetAttachments(CInfoStore& store, const char* uri) {
  const graphics::CToolkitLock lock;
  const wxLogNull quiet;
  const wxString path = PathOf(uri);
  store.resourceStore = nullptr;
  // Opening a pipe would wait for its other end.
  auto file = std::make_unique<wxFileInputStream>(wxFileName::FileExists(path) ? path : wxString());
  store.attachmentZip = std::make_unique<wxZipInputStream>(file.release());
  store.resourceStore = orlo::makeObject<CFilterZipResource>(*store.attachmentZip);
}

}  // namespace authfilter
