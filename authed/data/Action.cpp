#include "authed/data/Action.h"

#include "foundation/Error.h"
#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/geometry/XmlValues.h"

#include <array>
#include <cstddef>

namespace authed::data {

using namespace graphics;

namespace {

constexpr std::array<const char*, 4> kTypes{"undefined", "change-page", "play", "play-all"};
constexpr std::array<const char*, 3> kPageChanges{"goto-mainpage", "go-back", "goto-page"};
constexpr const char* kUnknownType = "Unknown Action type";
constexpr const char* kUnknownPageChange = "Unknown Change page type";

template <std::size_t Count, class Enum>
wxString WordOf(const std::array<const char*, Count>& words, Enum value, const char* problem) {
  const auto index = static_cast<std::size_t>(value);
  if (index >= Count) throw orlo::CException(problem);
  return words[index];
}

template <class Enum, std::size_t Count>
Enum ValueOf(const std::array<const char*, Count>& words, const wxString& word, const char* problem) {
  for (std::size_t index = 0; index < Count; ++index)
    if (word == words[index]) return static_cast<Enum>(index);
  throw orlo::CException(problem);
}

wxString Localized(const char* key, const char* text) {
  return wxutil::toWxString(orlo::localize(key, text));
}

wxString TextOfGotoPage(const wxString& page) {
  if (page.empty()) return Localized("aedCAction.GotoPage", "Goto page");
  wxString text = Localized("aedCAction.GotoPageX", "Goto page '%PAGE%'");
  text.Replace("%PAGE%", page);
  return text;
}

wxString TextOfPageChange(EPageChange change, const wxString& page) {
  switch (change) {
    case EPageChange::gotoMainPage:
      return Localized("aedCAction.GotoMainPage", "Goto mainpage");
    case EPageChange::goBack:
      return Localized("aedCAction.GoBack", "Go back");
    case EPageChange::gotoPage:
      return TextOfGotoPage(page);
  }
  return {};
}

}  // namespace

void CAction::CopyFrom(const CAction& other) {
  page_ = other.page_;
  type_ = other.type_;
  movieId_ = other.movieId_;
  chapter_ = other.chapter_;
  changePage_ = other.changePage_;
}

wxString CAction::GetDisplayText() const {
  switch (type_) {
    case EActionType::undefined:
      return Localized("aedCAction.Undefined", "Undefined");
    case EActionType::changePage:
      return TextOfPageChange(changePage_, page_);
    case EActionType::play:
      return Localized("aedCAction.Play", "Play Movie");
    case EActionType::playAll:
      return Localized("aedCAction.PlayAll", "Play All");
  }
  return {};
}

void CAction::WriteToXml(wxXmlNode& node, IResourceOutputStore& /*store*/) const {
  xml::WriteText(node, "page", page_);
  xml::WriteText(node, "type", WordOf(kTypes, type_, kUnknownType));
  xml::WriteInt(node, "movie-id", movieId_);
  xml::WriteInt(node, "chapter", chapter_);
  xml::WriteText(node, "change-page", WordOf(kPageChanges, changePage_, kUnknownPageChange));
}

void CAction::ReadFromXml(const wxXmlNode& node, IResourceInputStore& /*store*/) {
  xml::ReadInt(node, "movie-id", movieId_);
  wxString type;
  xml::ReadText(node, "type", type);
  type_ = ValueOf<EActionType>(kTypes, type, kUnknownType);
  wxString change;
  xml::ReadText(node, "change-page", change);
  if (!change.empty()) changePage_ = ValueOf<EPageChange>(kPageChanges, change, kUnknownPageChange);
  xml::ReadText(node, "page", page_);
  xml::ReadInt(node, "chapter", chapter_);
}

}  // namespace authed::data
