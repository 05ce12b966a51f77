#include "filter/Attachments.h"

#include "filter/InfoStore.h"
#include "foundation/Error.h"
#include "foundation/Pathes.h"
#include "foundation/URI.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/paint/Toolkit.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/strconv.h>
#include <wx/wfstream.h>

namespace authfilter {

namespace {

/// Empty for what is no URI.
wxString PathOf(const char* uri) {
  try {
    const auto parsed = orlo::makeObject<orlo::CURI>(wxutil::fromWxString(wxString(uri, *wxConvFileName)));
    return wxutil::toWxString(orlo::getPathes()->uriToPath(parsed));
  } catch (const orlo::CException&) {
    return {};
  }
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
