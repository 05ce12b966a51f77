#include "tests/host/CheckedPage.h"

#include "tests/host/Media.h"

#include <gtest/gtest.h>

namespace test {

Outcome check(const Folder& folder, const std::string& name) {
  return run({MFILTER_COMMAND, "check", name}, folder.path());
}

Outcome check(const std::string& content) {
  const Folder folder;
  folder.write("page.xml", content);
  return check(folder, "page.xml");
}

namespace {

std::string findings(const std::string& elements, int exitCode) {
  const Outcome outcome = check(page(elements));
  EXPECT_EQ(outcome.exitCode, exitCode);
  EXPECT_EQ(outcome.errors, "");
  const auto lines = outcome.output.substr(0, outcome.output.find("  page  "));
  return lines.substr(0, lines.rfind("page.xml: "));
}

}  // namespace

std::string errors(const std::string& elements) {
  return findings(elements, 1);
}

std::string warnings(const std::string& elements) {
  return findings(elements, 0);
}

}  // namespace test
