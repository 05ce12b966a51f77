#include "authed/data/ResolveShaders.h"

#include "backend/infilexml/Loop.h"
#include "backend/infilexml/Shader.h"
#include "foundation/Error.h"
#include "foundation/URI.h"

namespace authed::data {

using namespace vantra::infilexml;

namespace {

void ResolveName(CShader& shader, const orlo::String& folder) {
  if (shader.GetUri().isEmpty()) return;
  try {
    const orlo::P<orlo::IURI> uri = orlo::createURI(shader.GetUri());
    if (!uri->isAbsolute()) shader.SetUri(uri->resolve(orlo::createURI(folder))->getDescription());
  } catch (const orlo::CParseError&) {
    // What is no URI is the backend's to judge.
  }
}

void Resolve(CTrackItem& item, const orlo::String& folder) {
  if (auto* const shader = dynamic_cast<CShader*>(&item)) {
    ResolveName(*shader, folder);
  } else if (const auto* const loop = dynamic_cast<CLoop*>(&item)) {
    if (loop->item) Resolve(*loop->item, folder);
  } else if (const auto* const list = dynamic_cast<CTracklist*>(&item)) {
    for (std::size_t index = 0; index < list->GetTrackCount(); ++index)
      if (const auto& track = list->GetTrack(index); track->item) Resolve(*track->item, folder);
  }
}

}  // namespace

void ResolveShaders(const CInfile& infile, const std::string& folder) {
  if (folder.empty()) return;
  Resolve(*infile.GetVideoTracklist(), orlo::fromUTF8(folder.ends_with('/') ? folder : folder + '/'));
}

}  // namespace authed::data
