#include "authed/data/Action.h"
#include "foundation/Error.h"
#include "foundation/StringLocalizer.h"
#include "graphics/model/Base64Resources.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace authed::data {

namespace {

using graphics::ParseXml;
using graphics::ToText;

wxString Written(const CAction& action) {
  wxXmlNode node(wxXML_ELEMENT_NODE, "action");
  action.WriteToXml(node, *orlo::makeObject<graphics::CBase64Resources>());
  return ToText(node);
}

void Read(CAction& action, const wxString& text) {
  action.ReadFromXml(*ParseXml(text)->GetRoot(), *orlo::makeObject<graphics::CBase64Resources>());
}

/// The message of what it throws.
template <class Function>
std::string ErrorOf(Function function) {
  try {
    function();
  } catch (const orlo::CException& error) {
    return orlo::toStdString(error.getMessage());
  }
  return "no error";
}

constexpr std::array<std::pair<EActionType, const char*>, 4> kTypes{{{EActionType::undefined, "undefined"},
                                                                     {EActionType::changePage, "change-page"},
                                                                     {EActionType::play, "play"},
                                                                     {EActionType::playAll, "play-all"}}};
constexpr std::array<std::pair<EPageChange, const char*>, 3> kPageChanges{{{EPageChange::gotoMainPage, "goto-mainpage"},
                                                                           {EPageChange::goBack, "go-back"},
                                                                           {EPageChange::gotoPage, "goto-page"}}};

CAction GotoPage(const wxString& page) {
  CAction action;
  action.SetType(EActionType::changePage);
  action.SetChangePage(EPageChange::gotoPage);
  action.SetPage(page);
  return action;
}

TEST(Action, ThatIsNewDoesNothingAndWouldGoBack) {
  const CAction action;
  EXPECT_EQ(action.GetMovieId(), 0);
  EXPECT_EQ(action.GetPage(), "");
  EXPECT_EQ(static_cast<int>(action.GetType()), 0);
  EXPECT_EQ(action.GetChapter(), 0);
  EXPECT_EQ(static_cast<int>(action.GetChangePage()), 1);
  EXPECT_EQ(Written(action),
            "<action page=\"\" type=\"undefined\" movie-id=\"0\" chapter=\"0\" change-page=\"go-back\"/>");
}

TEST(Action, BringsBackWhatWasWritten) {
  CAction action = GotoPage("Chapters & \"more\"");
  action.SetMovieId(-7);
  action.SetChapter(12);
  CAction copy;
  Read(copy, Written(action));
  EXPECT_EQ(copy.GetMovieId(), -7);
  EXPECT_EQ(copy.GetPage(), "Chapters & \"more\"");
  EXPECT_EQ(copy.GetType(), EActionType::changePage);
  EXPECT_EQ(copy.GetChapter(), 12);
  EXPECT_EQ(copy.GetChangePage(), EPageChange::gotoPage);
}

TEST(Action, HasAWordForEachTypeAndEachPageChange) {
  for (const auto& [type, word] : kTypes) {
    CAction action;
    action.SetType(type);
    EXPECT_TRUE(Written(action).Contains(wxString(" type=\"") + word + "\""));
    CAction copy;
    Read(copy, Written(action));
    EXPECT_EQ(copy.GetType(), type);
  }
  for (const auto& [change, word] : kPageChanges) {
    CAction action;
    action.SetChangePage(change);
    EXPECT_TRUE(Written(action).Contains(wxString(" change-page=\"") + word + "\""));
    CAction copy;
    Read(copy, Written(action));
    EXPECT_EQ(copy.GetChangePage(), change);
  }
}

TEST(Action, NeedsATypeThatIsWrittenExactlySo) {
  for (const char* const text : {"<action/>", R"(<action type=""/>)", R"(<action type="PLAY"/>)",
                                 R"(<action type="play "/>)", R"(<action type="stop"/>)", R"(<action type="2"/>)"}) {
    CAction action;
    EXPECT_EQ(ErrorOf([&] { Read(action, text); }), "Unknown Action type") << text;
  }
}

TEST(Action, KeepsItsPageChangeWithoutAWord) {
  CAction action;
  action.SetChangePage(EPageChange::gotoPage);
  Read(action, R"(<action type="play"/>)");
  EXPECT_EQ(action.GetChangePage(), EPageChange::gotoPage);
  Read(action, R"(<action type="play" change-page=""/>)");
  EXPECT_EQ(action.GetChangePage(), EPageChange::gotoPage);
}

TEST(Action, KnowsNoOtherPageChanges) {
  for (const char* const text :
       {R"(<action type="play" change-page="Go-Back"/>)", R"(<action type="play" change-page="forward"/>)"}) {
    CAction action;
    EXPECT_EQ(ErrorOf([&] { Read(action, text); }), "Unknown Change page type") << text;
  }
}

TEST(Action, IsReadUpToWhatIsWrong) {
  CAction action;
  EXPECT_NE(ErrorOf([&] { Read(action, R"(<action movie-id="3" type="?" page="a" chapter="4"/>)"); }), "no error");
  EXPECT_EQ(action.GetMovieId(), 3);
  EXPECT_EQ(action.GetPage(), "");
  EXPECT_EQ(action.GetChapter(), 0);
  EXPECT_NE(ErrorOf([&] { Read(action, R"(<action type="play" change-page="?" page="a" chapter="4"/>)"); }),
            "no error");
  EXPECT_EQ(action.GetType(), EActionType::play);
  EXPECT_EQ(action.GetPage(), "");
  EXPECT_EQ(action.GetChapter(), 0);
}

TEST(Action, OfAnUnknownKindCannotBeWritten) {
  for (const int value : {-1, 4, 1000}) {
    CAction action;
    action.SetType(static_cast<EActionType>(value));
    EXPECT_EQ(ErrorOf([&] { Written(action); }), "Unknown Action type") << value;
  }
  for (const int value : {-1, 3}) {
    CAction action;
    action.SetChangePage(static_cast<EPageChange>(value));
    EXPECT_EQ(ErrorOf([&] { Written(action); }), "Unknown Change page type") << value;
  }
}

TEST(Action, CopiesAllThatItHas) {
  CAction action = GotoPage("Extras");
  action.SetMovieId(5);
  action.SetChapter(6);
  CAction copy;
  copy.CopyFrom(action);
  EXPECT_EQ(Written(copy), Written(action));
  copy.CopyFrom(copy);
  EXPECT_EQ(Written(copy), Written(action));
}

TEST(Action, SaysWhatItDoes) {
  CAction action;
  EXPECT_EQ(action.GetDisplayText(), "Undefined");
  action.SetType(EActionType::play);
  EXPECT_EQ(action.GetDisplayText(), "Play Movie");
  action.SetType(EActionType::playAll);
  EXPECT_EQ(action.GetDisplayText(), "Play All");
  action.SetType(EActionType::changePage);
  EXPECT_EQ(action.GetDisplayText(), "Go back");
  action.SetChangePage(EPageChange::gotoMainPage);
  EXPECT_EQ(action.GetDisplayText(), "Goto mainpage");
  action.SetChangePage(EPageChange::gotoPage);
  EXPECT_EQ(action.GetDisplayText(), "Goto page");
  EXPECT_EQ(GotoPage("Extras").GetDisplayText(), "Goto page 'Extras'");
  EXPECT_EQ(GotoPage("%PAGE%").GetDisplayText(), "Goto page '%PAGE%'");
}

TEST(Action, SaysNothingOfWhatItDoesNotKnow) {
  CAction action;
  action.SetType(static_cast<EActionType>(4));
  EXPECT_EQ(action.GetDisplayText(), "");
  action.SetType(EActionType::changePage);
  action.SetChangePage(static_cast<EPageChange>(3));
  EXPECT_EQ(action.GetDisplayText(), "");
}

TEST(Action, SaysItInTheLanguageOfItsUser) {
  const std::array<std::pair<const char*, const char*>, 7> texts{{{"aedCAction.Undefined", "Nichts"},
                                                                  {"aedCAction.GotoMainPage", "Zum Anfang"},
                                                                  {"aedCAction.GoBack", "Zurück"},
                                                                  {"aedCAction.GotoPageX", "Zu »%PAGE%«"},
                                                                  {"aedCAction.GotoPage", "Zu einer Seite"},
                                                                  {"aedCAction.Play", "Film zeigen"},
                                                                  {"aedCAction.PlayAll", "Alles zeigen"}}};
  for (const auto& [key, text] : texts) orlo::getStringLocalizer()->setText(key, orlo::fromUTF8(text));
  CAction action;
  const wxString undefined = action.GetDisplayText();
  action.SetType(EActionType::play);
  const wxString play = action.GetDisplayText();
  action.SetType(EActionType::playAll);
  const wxString playAll = action.GetDisplayText();
  action.SetType(EActionType::changePage);
  const wxString goBack = action.GetDisplayText();
  action.SetChangePage(EPageChange::gotoMainPage);
  const wxString gotoMainPage = action.GetDisplayText();
  const wxString gotoPage = GotoPage("").GetDisplayText();
  const wxString gotoPageX = GotoPage("Extras").GetDisplayText();
  orlo::getStringLocalizer()->clear();

  EXPECT_EQ(undefined, "Nichts");
  EXPECT_EQ(play, "Film zeigen");
  EXPECT_EQ(playAll, "Alles zeigen");
  EXPECT_EQ(goBack, wxString::FromUTF8("Zurück"));
  EXPECT_EQ(gotoMainPage, "Zum Anfang");
  EXPECT_EQ(gotoPage, "Zu einer Seite");
  EXPECT_EQ(gotoPageX, wxString::FromUTF8("Zu »Extras«"));
}

}  // namespace

}  // namespace authed::data
