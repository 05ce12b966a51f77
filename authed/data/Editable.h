#pragma once

#include "authed/data/Movie.h"

#include <wx/string.h>

namespace authed::data {

/// A movie that an editor makes: both texts are whole XML documents that are kept as they are.
class CEditable : public CMovie {
public:
  void WriteToXml(wxXmlNode& node, graphics::IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, graphics::IResourceInputStore& store) override;
  void Assign(const CMovie& other) override;
  /// Throws orlo::CError also if it would read more than 64 MB of descriptions.
  orlo::P<vantra::infilexml::CInfile> BuildInfile(double frameRate, double length) const override;
  /// Null if the description is no infile. Throws as reading an infile does.
  orlo::P<vantra::infilexml::CInfile> CreateInfile(double frameRate) const override;

  /// The backend's description.
  wxString vantraXml;
  /// The editor's own.
  wxString editorXml;
};

class CSlideshow : public CEditable {
public:
  EMovieType GetMovieType() const override { return EMovieType::slideshow; }
};

class CEditedMovie : public CEditable {
public:
  EMovieType GetMovieType() const override { return EMovieType::edited; }
};

}  // namespace authed::data
