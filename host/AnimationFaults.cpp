#include "host/AnimationFaults.h"

#include "host/ElementFaults.h"
#include "host/Errors.h"
#include "host/PageVocabulary.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>

namespace host {

namespace {

class AnimationCheck {
public:
  AnimationCheck(const xmlNode& image, const xmlNode& animation, Findings& findings)
      : image_(image), animation_(animation), findings_(findings) {}

  void run() {
    const std::string type = findProperty(animation_, "type").value_or("");
    if (type.empty()) return warn(animation_, "has an <animation> without \"type\" and shows nothing");
    const bool isGif = type == "gif";
    if (!isGif && type != "animation") return;
    for (const xmlNode* child = firstElement(animation_); child; child = nextElement(*child))
      if (readFrame(*child) && isGif) findFrameFaults(*child);
    findCountFaults(isGif);
  }

private:
  void warn(const xmlNode& place, const std::string& text) {
    findings_.warning(lineOf(place), describe(image_) + " " + text);
  }

  bool readFrame(const xmlNode& node) {
    const std::optional<long> number = numberBehind("frame", nameOf(node));
    return number && numbers_.insert(*number).second;
  }

  void findFrameFaults(const xmlNode& frame) {
    if (!findChild(frame, "frame")) warn(frame, "has no <frame> in " + tagOf(frame) + ": nothing is shown meanwhile");
    if (!findProperty(frame, "delay"))
      warn(frame, "has no \"delay\" in " + tagOf(frame) + ": it stays for one frame of the video");
  }

  void findCountFaults(bool isGif) {
    const auto count = static_cast<long>(std::clamp(frameCountOf(image_), 0.0, 1e6));
    if (count == 0) {
      const std::string lack =
          findProperty(animation_, "count") ? "a \"count\" of no frames" : "no \"count\" of frames";
      return warn(animation_, "has " + lack + " and shows nothing" +
                                  (numbers_.empty() ? "" : ", though there are " + counted(numbers_.size(), "frame")));
    }
    long missing = 0;
    while (missing < count && numbers_.contains(missing)) ++missing;
    if (missing < count)
      warn(animation_, "has no <frame" + std::to_string(missing) + ">, but count=\"" + std::to_string(count) +
                           "\": " + (isGif ? "it is left out" : "nothing is shown in its time"));
    if (!numbers_.empty() && *numbers_.rbegin() >= count)
      warn(animation_, "has frames that its count=\"" + std::to_string(count) + "\" leaves out, <frame" +
                           std::to_string(*numbers_.lower_bound(count)) + "> the first of them");
  }

  const xmlNode& image_;
  const xmlNode& animation_;
  Findings& findings_;
  std::set<long> numbers_;
};

}  // namespace

double frameCountOf(const xmlNode& animationImage) {
  const xmlNode* animation = findChild(animationImage, "animation");
  return animation ? numberOf(*animation, "count") : 0;
}

void findAnimationFaults(const xmlNode& animationImage, Findings& findings) {
  if (const xmlNode* animation = findChild(animationImage, "animation"))
    return AnimationCheck(animationImage, *animation, findings).run();
  findings.warning(lineOf(animationImage), describe(animationImage) + " has no <animation> and shows nothing");
}

}  // namespace host
