#pragma once

#include "host/Findings.h"
#include "host/PageVocabulary.h"
#include "host/Xml.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace host {

// A picture or a rich text that stands in a page.
struct Attachment {
  Content content;
  const xmlNode* node;
  const xmlNode* element;
  long long unique;  // of the element, or of the skin within it; 0 if it is not shared
  bool isFrame;      // of an animation
};

// An element that shows a picture that lies in a file.
struct PictureFile {
  std::string name;
  const xmlNode* element;
  long long unique;
};

// A movie that lies in a file, or a theme, whose description does.
struct MovieUse {
  const xmlNode* node;  // of the movie
  const xmlNode* element;
  long long unique;  // of the movie
};

// The page rectangle: the content box, else what the elements cover. Page units.
struct PageSize {
  double width = 0;
  double height = 0;
  long line = 0;  // of the content box, else of the page
  bool fromContentBox = false;

  bool isUsable() const;
  const char* fault() const;  // what is wrong if it is not usable
  double aspect() const { return width / height; }
};

// What a page holds, and what is wrong with it as far as it can be told from its nodes and properties. Points into the
// document that it was made of.
struct PageContent {
  Findings findings;
  PageSize size;
  std::map<std::string_view, long> kinds;  // how many elements there are of each, shared ones counted once
  std::map<long long, long> uses;          // of shared elements, skins and movies, by their numbers
  std::set<long long> skins;               // the numbers of shared skins
  std::set<long long> movieNumbers;        // the numbers of shared movies
  std::vector<Attachment> attachments;
  std::vector<PictureFile> files;
  std::vector<MovieUse> movies;

  // The first element of a type that nobody knows, and what is wrong with it; line 0 for none.
  Finding unknown;
  // The first movie image that would play if it had a movie; line 0 for none. The module refuses it unless movies stand
  // still.
  Finding movieless;
  // The first line that the module may refuse; 0 for none.
  long refusedLine = 0;
};

PageContent readContent(const xmlNode& root);

}  // namespace host
