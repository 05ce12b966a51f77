#include "host/PageDiagnosis.h"

#include "host/Errors.h"
#include "host/PageContent.h"
#include "host/Xml.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

int evenAtLeastTwo(double value) {
  return std::max(2, static_cast<int>(std::lround(value / 2)) * 2);
}

}  // namespace

Size PageDiagnosis::suggestSize(int lines) const {
  constexpr double widest = 4096;
  const int rows = evenAtLeastTwo(std::min<double>(lines, widest / aspect()));
  return {evenAtLeastTwo(std::min(aspect() * rows, widest)), rows};
}

bool PageDiagnosis::fits(Size size) const {
  return std::abs(aspect() - size.aspect()) <= 0.2;
}

PageDiagnosis diagnose(const PageFile& page) {
  const XmlDocument document = parseXml(page);
  const PageContent content = readContent(*xmlDocGetRootElement(document.get()));
  if (content.unknown.line > 0) throw InputError(located(page.path, content.unknown.line, content.unknown.text));
  if (!content.size.isUsable()) throw InputError(located(page.path, content.size.line, content.size.fault()));
  return {content.size.width, content.size.height, content.refusedLine, content.movieless};
}

}  // namespace host
