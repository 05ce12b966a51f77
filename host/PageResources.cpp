#include "host/PageResources.h"

#include "host/Archive.h"
#include "host/Base64.h"
#include "host/ElementFaults.h"
#include "host/Errors.h"
#include "host/FileName.h"
#include "host/Interrupt.h"
#include "host/PageFile.h"
#include "host/RichTextLimits.h"
#include "host/Spelling.h"
#include "host/StillPicture.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>

namespace host {

namespace {

// Pictures beyond that many pixels together are not decoded, only looked at.
constexpr std::int64_t mostPixels = std::int64_t{256} * 1024 * 1024;
// What the module takes of all pictures together.
constexpr std::int64_t maxPagePixels = std::int64_t{512} * 1024 * 1024;

constexpr char whiteSpace[] = " \t\n\v\f\r";

// The text of the first text or CDATA section, without white space round it.
std::string_view contentOf(const xmlNode& node) {
  for (const xmlNode* child = node.children; child; child = child->next) {
    std::string_view text = textOf(*child);
    const std::size_t first = text.find_first_not_of(whiteSpace);
    if (first == std::string_view::npos) continue;
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(whiteSpace) + 1);
  }
  return {};
}

// What the module makes of the first character that is no base64.
std::string faultAt(std::string_view text, std::size_t place) {
  const std::string after = " after " + std::to_string(place) + " characters";
  if (text[place] == '=') return "ends in '=': the module takes no padding, leave it out";
  if (std::string_view(whiteSpace).find(text[place]) != std::string_view::npos)
    return "has white space in its base64 text" + after + ": write it in one line";
  return "has " + inQuotes(text.substr(place, 1)) + " in its base64 text" + after;
}

long countParagraphs(const xmlNode& richText) {
  long count = 0;
  const xmlNode* layout = findChild(richText, "paragraphlayout");
  for (const xmlNode* child = layout ? firstElement(*layout) : nullptr; child; child = nextElement(*child))
    if (nameOf(*child) == "paragraph") ++count;
  return count;
}

class Reader {
public:
  Reader(const PageContent& content, const std::optional<ResourceArchive>& archive, Findings& findings)
      : content_(content), archive_(archive), findings_(findings) {}

  std::vector<Resource> run() {
    for (const Attachment& attachment : content_.attachments) {
      checkInterrupt();
      readAttachment(attachment);
    }
    for (const PictureFile& file : content_.files) {
      checkInterrupt();
      readFile(file);
    }
    return std::move(resources_);
  }

private:
  void readAttachment(const Attachment& attachment) {
    const xmlNode& node = *attachment.node;
    const std::string place = attachment.element ? tagOf(node) + " of " + describe(*attachment.element) : tagOf(node);
    const std::string name = findProperty(node, "name").value_or("");
    if (archive_) return findInArchive(attachment, place, name);
    const std::string_view text = contentOf(node);
    if (text.empty())
      return findings_.error(lineOf(node), name.empty() ? place + " is empty"
                                                        : place + " is " + inQuotes(name, '"') +
                                                              " of an archive, which --attachments tells");
    const Decoded decoded = fromBase64(text);
    if (decoded.length < text.size()) return findings_.error(lineOf(node), place + " " + faultAt(text, decoded.length));

    Resource resource;
    resource.content = attachment.content;
    resource.line = lineOf(node);
    resource.name = attachment.element ? describe(*attachment.element) : tagOf(node);
    resource.bytes = decoded.bytes.size();
    resource.uses = usesOf(attachment.unique);
    const std::string fault = attachment.content == Content::picture    ? readEmbedded(node, decoded.bytes, resource)
                              : attachment.content == Content::richText ? readRichText(decoded.bytes, resource)
                              : attachment.content == Content::timeline ? readTimeline(decoded.bytes)
                                                                        : "";
    if (!fault.empty()) return findings_.error(lineOf(node), place + " " + fault);
    if (attachment.content == Content::timeline || attachment.content == Content::opaque) return;
    resource.frames = attachment.isFrame ? 1 : 0;
    if (!isNextFrame(attachment, resource)) return add(std::move(resource), attachment.element);
    resources_.back().bytes += resource.bytes;
    ++resources_.back().frames;
  }

  // Whether it goes on with the animation whose frames were added last.
  bool isNextFrame(const Attachment& attachment, const Resource& resource) const {
    if (!attachment.isFrame || resources_.empty() || attachment.element != last_) return false;
    const Resource& last = resources_.back();
    return last.format == resource.format && last.width == resource.width && last.height == resource.height;
  }

  void add(Resource resource, const xmlNode* element) {
    resources_.push_back(std::move(resource));
    last_ = element;
  }

  void findInArchive(const Attachment& attachment, const std::string& place, const std::string& name) {
    const bool isPicture = attachment.content == Content::picture;
    const std::string otherwise = isPicture ? "; the substitute picture is shown instead"
                                  : attachment.content == Content::richText ? "; there is no text"
                                                                            : "; it counts as none";
    const auto error = [&](const std::string& text) { findings_.error(lineOf(*attachment.node), place + text); };
    if (name.empty()) return error(" has no \"name\" of a file in " + archive_->path + otherwise);
    if (!archive_->names.contains(archiveName(name)))
      return error(" name=" + inQuotes(name, '"') + ": there is no such file in " + archive_->path + otherwise);
    const auto endsIn = [&](const char* extension) { return hasExtension(name, extension); };
    if (isPicture && !endsIn(".png") && !endsIn(".jpg") && !endsIn(".bmp") && !endsIn(".ico"))
      error(" name=" + inQuotes(name, '"') + ": must end in .png, .jpg, .bmp or .ico" + otherwise);
  }

  std::string readEmbedded(const xmlNode& node, std::span<const unsigned char> bytes, Resource& resource) {
    const std::string extension = findProperty(node, "extension").value_or("");
    std::string fault = readPicture(bytes, resource);
    if (extension.empty())
      return "has no \"extension\" and is not shown" +
             (fault.empty() ? "; it is a " + resource.format + " picture" : "");
    if (!fault.empty()) return fault;
    if (!sameName(extension, resource.format))
      return "is not shown: it is a " + resource.format + " picture, but its extension says " + inQuotes(extension);
    return {};
  }

  std::string readPicture(std::span<const unsigned char> bytes, Resource& resource) {
    const StillPicture picture = identifyPicture(bytes);
    resource.format = picture.format;
    resource.width = picture.width;
    resource.height = picture.height;
    const std::string size = std::to_string(picture.width) + "x" + std::to_string(picture.height);
    if (picture.format.empty()) return "is no PNG, JPEG or BMP picture";
    if (picture.isRefused())
      return "is a " + picture.format + " picture" + (picture.inRunLengths ? " in run lengths" : "") +
             ", which is not shown; make it a PNG";
    if (picture.isOfOtherKind()) return {};
    if (picture.width == 0 || picture.height == 0) return "is a " + picture.format + " picture with a broken header";
    if (picture.pixels() > StillPicture::maxPixels) return "is not shown: " + size + " pixels are more than 64 Mpixel";
    if (std::max(picture.width, picture.height) > StillPicture::maxSide)
      return "is not shown: " + size + " is more than 32767 pixels on a side";
    pixels_ += picture.pixels();
    if (pixels_ <= mostPixels && !isWhole(picture, bytes))
      return "is a damaged or cut off " + picture.format + " picture of " + size;
    return {};
  }

  static std::string readRichText(std::span<const unsigned char> bytes, Resource& resource) {
    std::vector<XmlProblem> problems;
    const XmlDocument document = readXml({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, problems);
    if (!document)
      return "is no rich text: in line " + std::to_string(problems.front().line) + " of it: " + problems.front().text;
    const xmlNode& root = *xmlDocGetRootElement(document.get());
    if (nameOf(root) != "richtext") return "is no rich text: its root is " + tagOf(root) + ", not <richtext>";
    resource.paragraphs = countParagraphs(root);
    if (resource.paragraphs == 0) return "is a rich text without a <paragraph>";
    return beyondLimits(root);
  }

  static std::string readTimeline(std::span<const unsigned char> bytes) {
    std::vector<XmlProblem> problems;
    const XmlDocument document = readXml({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, problems);
    if (!document)
      return "is no timeline: in line " + std::to_string(problems.front().line) + " of it: " + problems.front().text;
    const xmlNode& root = *xmlDocGetRootElement(document.get());
    return nameOf(root) == "infile" ? "" : "is no timeline: its root is " + tagOf(root) + ", not <infile>";
  }

  void readFile(const PictureFile& file) {
    const long line = lineOf(*file.element);
    const std::string name = describe(*file.element) + " filename=" + inQuotes(file.name, '"');
    if (archive_) return findings_.warning(line, name + " is ignored: pictures come from " + archive_->path);
    if (const auto known = files_.find(file.name); known != files_.end()) {
      if (known->second) resources_[*known->second].uses += usesOf(file.unique);
      return;
    }
    files_[file.name] = std::nullopt;
    std::error_code error;
    if (!std::filesystem::is_regular_file(file.name, error)) {
      const bool isRelative = std::filesystem::path(file.name).is_relative();
      const std::string searched = isRelative ? ", looked for from the current folder" : "";
      const bool attached = findChild(*file.element, "attachment-bitmap") != nullptr;
      return findings_.error(line, name + ": there is no such file" + searched +
                                       "; the substitute picture is shown instead" +
                                       (attached ? ", not the <attachment-bitmap>" : ""));
    }
    try {
      const PageFile content = readPage(file.name);
      Resource resource;
      resource.content = Content::picture;
      resource.line = line;
      resource.name = file.name;
      resource.bytes = content.xml.size();
      resource.uses = usesOf(file.unique);
      const auto* start = reinterpret_cast<const unsigned char*>(content.xml.data());
      const std::string fault = readPicture({start, content.xml.size()}, resource);
      if (!fault.empty()) return findings_.error(line, name + " " + fault);
      files_[file.name] = resources_.size();
      resources_.push_back(std::move(resource));
    } catch (const InputError& problem) {
      findings_.error(line, problem.what());
    }
  }

  long usesOf(long long unique) const {
    const auto uses = content_.uses.find(unique);
    return uses == content_.uses.end() ? 1 : uses->second;
  }

  const PageContent& content_;
  const std::optional<ResourceArchive>& archive_;
  Findings& findings_;
  std::vector<Resource> resources_;
  const xmlNode* last_ = nullptr;                            // the element of the last one
  std::map<std::string, std::optional<std::size_t>> files_;  // those that could be read, by their places
  std::int64_t pixels_ = 0;
};

}  // namespace

std::vector<Resource> readResources(const PageContent& content, const std::optional<ResourceArchive>& archive,
                                    Findings& findings) {
  return Reader(content, archive, findings).run();
}

}  // namespace host
