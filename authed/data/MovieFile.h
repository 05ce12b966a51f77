#pragma once

#include "authed/data/Movie.h"

#include <wx/filename.h>

namespace authed::data {

class CMovieFile : public CMovie {
public:
  void WriteToXml(wxXmlNode& node, graphics::IResourceOutputStore& store) const override;
  /// A relative path is one from the current folder.
  void ReadFromXml(const wxXmlNode& node, graphics::IResourceInputStore& store) override;
  void Assign(const CMovie& other) override;
  EMovieType GetMovieType() const override { return EMovieType::file; }
  bool IsFileBased() const override { return true; }
  orlo::P<vantra::infilexml::CInfile> CreateInfile(double frameRate) const override;

  wxFileName filename;
};

}  // namespace authed::data
