#include "host/PageMovies.h"

#include "host/ElementFaults.h"
#include "host/Errors.h"
#include "host/MovieFaults.h"
#include "host/Spelling.h"

#include <array>
#include <cstdio>
#include <filesystem>

namespace host {

namespace {

constexpr std::size_t mostLines = 20;

class MovieReader {
public:
  MovieReader(const PageContent& content, const std::string& themeFolder, Findings& findings)
      : content_(content), themeFolder_(themeFolder), findings_(findings) {}

  std::string run() {
    for (const MovieUse& movie : content_.movies) read(movie);
    if (content_.movies.empty()) return {};
    if (content_.movies.size() > mostLines)
      lines_ += "    and " + std::to_string(content_.movies.size() - mostLines) + " more\n";
    return "  movies    " + std::to_string(content_.movies.size()) + "\n" + lines_;
  }

private:
  void read(const MovieUse& movie) {
    const std::string type = findProperty(*movie.node, "type").value_or("");
    std::string file;
    if (type == "movie-file") {
      file = fileNameOf(*movie.node);
      look(movie, file, file, "from the current folder");
    } else if (type == "theme") {
      file = findProperty(*movie.node, "src").value_or("");
      const bool inFolder = !themeFolder_.empty();
      look(movie, file, inFolder ? themeFolder_ / file : std::filesystem::path(file),
           inFolder ? "in " + themeFolder_.string() : "from the current folder; --themes names another one");
    }
    if (++told_ <= mostLines)
      lines_ += "    line " + std::to_string(lineOf(*movie.node)) + ": " + describeMovie(*movie.node) + ": " +
                detailOf(movie, type, file) + "\n";
  }

  void look(const MovieUse& movie, const std::string& name, const std::filesystem::path& path,
            const std::string& place) {
    std::error_code error;
    if (name.empty() || std::filesystem::is_regular_file(path, error)) return;
    const std::string searched = std::filesystem::path(name).is_relative() ? ", looked for " + place : "";
    findings_.error(lineOf(*movie.node), describeMovie(*movie.node) + " " + inQuotes(name, '"') +
                                             ": there is no such file" + searched + "; the movie does not play");
  }

  std::string detailOf(const MovieUse& movie, const std::string& type, const std::string& file) const {
    std::string text = type + (file.empty() ? "" : " " + file);
    if (const double seconds = numberOf(*movie.node, "duration"); seconds > 0) {
      std::array<char, 32> number{};
      std::snprintf(number.data(), number.size(), ", %g s", seconds);
      text += number.data();
    }
    if (const xmlNode* chapters = findChild(*movie.node, "chapters"))
      text += ", " + counted(countChildren(chapters), "chapter");
    if (type == "theme") text += ", " + counted(countChildren(findChild(*movie.node, "movies")), "movie");
    const auto uses = content_.uses.find(movie.unique);
    if (uses != content_.uses.end() && uses->second > 1) text += ", used " + std::to_string(uses->second) + " times";
    return text;
  }

  const PageContent& content_;
  const std::filesystem::path themeFolder_;
  Findings& findings_;
  std::string lines_;
  std::size_t told_ = 0;
};

}  // namespace

std::string readMovies(const PageContent& content, const std::string& themeFolder, Findings& findings) {
  return MovieReader(content, themeFolder, findings).run();
}

}  // namespace host
