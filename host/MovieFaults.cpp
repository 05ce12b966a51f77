#include "host/MovieFaults.h"

#include "host/ElementFaults.h"
#include "host/Errors.h"
#include "host/Spelling.h"

#include <filesystem>
#include <set>

namespace host {

namespace {

void findThemeFaults(const xmlNode& theme, Findings& findings) {
  if (findProperty(theme, "src").value_or("").empty())
    findings.warning(lineOf(theme),
                     describeMovie(theme) + " has no \"src\", the file of its description, and shows nothing");
  const xmlNode* movies = findChild(theme, "movies");
  std::set<std::string> ids;
  for (const xmlNode* movie = movies ? firstElement(*movies) : nullptr; movie; movie = nextElement(*movie)) {
    const std::string id = findProperty(*movie, "id").value_or("");
    if (!id.empty() && !ids.insert(id).second)
      findings.warning(lineOf(*movie), describeMovie(*movie) + " has the id " + id +
                                           " of another one of the theme, which is shown instead");
  }
}

}  // namespace

std::string fileNameOf(const xmlNode& movie) {
  const xmlNode* file = findChild(movie, "filename");
  if (!file) return {};
  const std::string name = findProperty(*file, "name").value_or("");
  return name.empty() ? name : (std::filesystem::path(findProperty(*file, "path").value_or("")) / name).string();
}

std::string describeMovie(const xmlNode& movie) {
  const std::string title = findProperty(movie, "title").value_or("");
  return title.empty() ? tagOf(movie) : tagOf(movie) + " " + inQuotes(title);
}

void findMovieFaults(const xmlNode& movie, Findings& findings) {
  const std::string type = findProperty(movie, "type").value_or("");
  const auto warn = [&](const std::string& text) { findings.warning(lineOf(movie), describeMovie(movie) + text); };
  if (type == "movie-file" && fileNameOf(movie).empty()) warn(" has no <filename> with a \"name\" and shows nothing");
  if ((type == "slideshow" || type == "edited-movie") && !findChild(movie, "vantra.xml"))
    warn(" has no <vantra.xml> and shows nothing");
  if (type == "theme") findThemeFaults(movie, findings);
}

void findMovieImageFaults(const xmlNode& image, const xmlNode* movie, Findings& findings) {
  const auto warn = [&](const std::string& text) { findings.warning(lineOf(image), describe(image) + text); };
  if (!movie) return warn(" has no <movie> and shows nothing");
  const double chapter = numberOf(image, "chapter");
  const std::size_t chapters = countChildren(findChild(*movie, "chapters"));
  if (chapter > static_cast<double>(chapters))
    warn(" begins with chapter " + findProperty(image, "chapter").value_or("") + ", but its movie has " +
         counted(chapters, "chapter") + ": it begins with the movie");
}

}  // namespace host
