#include "host/CheckCommand.h"

#include "host/Archive.h"
#include "host/Base64.h"
#include "host/Errors.h"
#include "host/Instance.h"
#include "host/Interrupt.h"
#include "host/PageContent.h"
#include "host/PageDiagnosis.h"
#include "host/PageFile.h"
#include "host/PageMovies.h"
#include "host/PageResources.h"
#include "host/PageSummary.h"

#include <cstdio>
#include <optional>

namespace host {

namespace {

constexpr int lines = 1080;

void print(const std::string& path, const Findings& findings) {
  for (const Finding& finding : findings.sorted()) {
    const char* level = finding.level == Finding::Level::error ? "error: " : "warning: ";
    std::puts(located(path, finding.line, level + finding.text).c_str());
  }
  if (findings.leftOut() > 0) std::printf("%s: and %zu more\n", path.c_str(), findings.leftOut());
  const std::string verdict =
      findings.errors() + findings.warnings() == 0
          ? "no errors, no warnings"
          : counted(findings.errors(), "error") + ", " + counted(findings.warnings(), "warning");
  std::puts(located(path, verdict).c_str());
}

// Opens the page and draws a frame of it, with the still pictures of movies. What the module says is told unless it was
// known already.
void tryModule(const PageFile& page, const std::string& attachments, PageContent& content) {
  const PageDiagnosis shape{content.size.width, content.size.height, 0};
  const Size size = shape.suggestSize(lines);
  if (!shape.fits(size))
    content.findings.error(content.size.line, "the page is too long and narrow to be shown in any frame");
  try {
    Instance instance;
    const bool taken = instance.set("width", std::to_string(size.width)) &&
                       instance.set("height", std::to_string(size.height)) && instance.set("noalpha", "1") &&
                       instance.set("nomovies", "1") &&
                       (attachments.empty() || instance.set("attachments", attachments)) &&
                       instance.set("plugindata", toBase64(page.xml));
    if (!taken) return content.findings.error(0, "the module says: " + instance.lastError());
    instance.open();
    instance.nextFrame();
    const Instance::Frame frame(instance, size);
  } catch (const std::exception& error) {
    if (content.refusedLine == 0) content.findings.error(0, std::string("the module says: ") + error.what());
  }
}

}  // namespace

bool check(const CheckOptions& options) {
  const PageFile page = readPage(options.page);
  std::string attachments;
  std::optional<ResourceArchive> archive;
  if (!options.attachments.empty()) {
    attachments = archiveUri(options.attachments);
    archive = ResourceArchive{options.attachments, readArchiveNames(options.attachments)};
  }
  std::vector<XmlProblem> problems;
  const XmlDocument document = readXml(page.xml, problems);
  if (!document) {
    Findings findings;
    for (const XmlProblem& problem : problems) findings.error(problem.line, problem.text);
    print(page.path, findings);
    std::puts("  Mend the XML first; nothing else could be checked.");
    return false;
  }

  checkInterrupt();
  PageContent content = readContent(*xmlDocGetRootElement(document.get()));
  const std::vector<Resource> resources = readResources(content, archive, content.findings);
  const std::string movies = readMovies(content, options.themes, content.findings);
  if (content.size.isUsable()) tryModule(page, attachments, content);
  checkInterrupt();
  print(page.path, content.findings);
  std::fputs((summarise(content, resources) + movies).c_str(), stdout);
  return content.findings.errors() == 0;
}

}  // namespace host
