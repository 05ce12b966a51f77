#pragma once

#include "foundation/Object.h"

#include <wx/string.h>

#include <cstdint>

class wxXmlNode;

namespace graphics {
class IResourceInputStore;
class IResourceOutputStore;
}  // namespace graphics

namespace authed::data {

enum class EActionType : std::int32_t { undefined = 0, changePage = 1, play = 2, playAll = 3 };

enum class EPageChange : std::int32_t { gotoMainPage = 0, goBack = 1, gotoPage = 2 };

/// What a button of a disc menu does when it is pressed. Nothing is done here: it is stored, shown and handed on.
class CAction : public orlo::CObject {
public:
  /// The index of the movie that is played.
  std::int32_t GetMovieId() const { return movieId_; }
  void SetMovieId(std::int32_t id) { movieId_ = id; }
  /// The name of the page that is gone to.
  const wxString& GetPage() const { return page_; }
  void SetPage(const wxString& page) { page_ = page; }
  EActionType GetType() const { return type_; }
  void SetType(EActionType type) { type_ = type; }
  /// Of the movie.
  std::int32_t GetChapter() const { return chapter_; }
  void SetChapter(std::int32_t chapter) { chapter_ = chapter; }
  EPageChange GetChangePage() const { return changePage_; }
  void SetChangePage(EPageChange change) { changePage_ = change; }

  void CopyFrom(const CAction& other);
  /// For people, localised. Empty for values that are none of the above.
  wxString GetDisplayText() const;

  /// Both throw orlo::CException for a type or a page change that is none of the above. The type must not be missing
  /// either.
  void WriteToXml(wxXmlNode& node, graphics::IResourceOutputStore& store) const;
  void ReadFromXml(const wxXmlNode& node, graphics::IResourceInputStore& store);

private:
  std::int32_t movieId_ = 0;
  wxString page_;
  EActionType type_ = EActionType::undefined;
  std::int32_t chapter_ = 0;
  EPageChange changePage_ = EPageChange::goBack;
};

}  // namespace authed::data
