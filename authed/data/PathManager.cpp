#include "authed/data/PathManager.h"

#include "authed/data/Movie.h"
#include "foundation/Pathes.h"
#include "foundation/Singleton.h"
#include "foundation/wxutil/WXString.h"

namespace authed::data {

CPathManager& CPathManager::GetInstance() {
  static constinit orlo::TSingleton<CPathManager> manager;
  return *manager.get([] { return orlo::P<CPathManager>(orlo::makeObject<CPathManager>()); });
}

void CPathManager::SetPaths(const wxFileName& first, const wxFileName& second, const wxFileName& third) {
  first_ = first;
  second_ = second;
  third_ = third;
}

orlo::P<orlo::IURI> UriOf(const wxFileName& file) {
  const wxString path = file.GetFullPath();
  return path.empty() ? nullptr : orlo::getPathes()->pathToURI(wxutil::fromWxString(path));
}

std::string UriTextOf(const wxFileName& folder) {
  const orlo::P<orlo::IURI> uri = UriOf(folder);
  return uri ? orlo::toStdString(uri->getDescription()) : "file:///c:/";
}

void FillPaths(CThumbnailRequest& request) {
  const CPathManager& paths = CPathManager::GetInstance();
  request.filterDir = UriTextOf(paths.GetFirstPath());
  request.animationDir = UriTextOf(paths.GetSecondPath());
  request.themeDir = UriTextOf(paths.GetThirdPath());
  request.params.filterDir = request.filterDir.c_str();
  request.params.animationDir = request.animationDir.c_str();
  request.params.themeDir = request.themeDir.c_str();
}

}  // namespace authed::data
