#include "backend/infilexml/Theme.h"

#include "backend/infilexml/Element.h"

namespace vantra::infilexml {

namespace {

constexpr const char* kMovie = "movie";

}  // namespace

void CMovie::Read(const TiXmlElement& element) {
  ReadAttribute(element, "src", src);
  ReadAttribute(element, "infile-id", infileId);
}

void CMovie::Write(TiXmlElement& element) const {
  WriteAttribute(element, "src", src);
  WriteAttribute(element, "infile-id", infileId);
}

void CTheme::Read(const TiXmlElement& element) {
  ReadAttribute(element, "duration", duration);
  ReadAttribute(element, "src", src);
  ForEachElement(element, [&](const TiXmlElement& child) {
    if (NameOf(child) != kMovie) return;
    const auto movie = orlo::makeObject<CMovie>();
    movie->Read(child);
    AddMovie(movie);
  });
}

void CTheme::Write(TiXmlElement& element) const {
  WriteAttribute(element, "duration", duration);
  WriteAttribute(element, "src", src);
  for (const auto& movie : movies_) movie->Write(AppendElement(element, kMovie));
}

}  // namespace vantra::infilexml
